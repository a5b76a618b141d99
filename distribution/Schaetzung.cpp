#include "distribution/Schaetzung.h"

#include <cmath>

#include "distribution/Tupel.h"
#include "distribution/basAbstand.h"

namespace sw {

namespace {

constexpr double EulerGamma = 0.57721566490153286061;

// zeta(s) for s >= 2: ten terms and the Euler-Maclaurin tail, far inside double precision.
double zeta(int s) {
    const double n = 10;
    double summe = 0;
    for (int k = 1; k < 10; ++k) summe += std::pow(double(k), -s);
    return summe + std::pow(n, 1.0 - s) / (s - 1) + 0.5 * std::pow(n, -s) + s * std::pow(n, -s - 1) / 12.0 -
           s * (s + 1.0) * (s + 2.0) * std::pow(n, -s - 3) / 720.0;
}

}  // namespace

double LogIntegral(double x) {
    // Ramanujan's series: converges for every x > 1, in about ln x terms, without the
    // cancellation of the plain power series.
    const double l = std::log(x);
    double summe = 0, glied = -1, innen = 0;
    for (int n = 1; n < 400; ++n) {
        glied *= -l / n / 2.0;  // (-1)^(n-1) l^n / (n! 2^n), twice that below
        if ((n - 1) % 2 == 0) innen += 1.0 / n;  // sum of 1/(2k+1) for 2k+1 <= n
        const double beitrag = glied * 2 * innen;
        summe += beitrag;
        if (std::fabs(beitrag) < 1e-17 * std::fabs(summe) && n > l) break;
    }
    return EulerGamma + std::log(l) + std::sqrt(x) * summe;
}

double RiemannR(double x) {
    const double l = std::log(x);
    double summe = 1, glied = 1;
    for (int k = 1; k < 1000; ++k) {
        glied *= l / k;
        const double beitrag = glied / (k * zeta(k + 1));
        summe += beitrag;
        if (beitrag < 1e-17 * summe && k > l) break;
    }
    return summe;
}

double LogPotenzIntegral(double a, double b, int k) {
    if (a < 2) a = 2;
    if (b <= a) return 0;
    // With u = ln t the integrand is e^u / u^k: smooth, so Gauss-Legendre with 8 points on
    // pieces of at most 0.25 in u is exact to double precision.
    static const double x8[4] = {0.1834346424956498, 0.5255324099163290, 0.7966664774136267, 0.9602898564975363};
    static const double w8[4] = {0.3626837833783620, 0.3137066458778873, 0.2223810344533745, 0.1012285362903763};
    const double ua = std::log(a), ub = std::log(b);
    const int teile = int(std::ceil((ub - ua) / 0.25));
    const double h = (ub - ua) / teile;
    double summe = 0;
    for (int i = 0; i < teile; ++i) {
        const double mitte = ua + (i + 0.5) * h;
        for (int j = 0; j < 4; ++j) {
            for (double u : {mitte - 0.5 * h * x8[j], mitte + 0.5 * h * x8[j]}) summe += w8[j] * std::exp(u) / std::pow(u, k);
        }
    }
    return summe * 0.5 * h;
}

double TupelKonstante(int art) {
    switch (art) {
    case TupelZwillinge:
    case TupelCousins: return ZwillingsKonstante;
    case TupelSexy: return 2 * ZwillingsKonstante;  // 3 divides 6: the singular series doubles
    case TupelDrillingA:
    case TupelDrillingB: return 2.8582485957192;
    case TupelVierlinge: return 4.1511808632;
    default: return 1;
    }
}

double TupelSchaetzung(int art, double a, double b) {
    if (art == TupelPrimzahlen) return b < 2 ? 0 : LogIntegral(b) - LogIntegral(std::max(a, 2.0));
    const int k = int(TupelMuster(art).size());
    // The first member runs up to b minus the constellation's width.
    const double breite = TupelMuster(art).back();
    return TupelKonstante(art) * LogPotenzIntegral(a, b - breite, k);
}

}  // namespace sw
