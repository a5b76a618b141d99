#include "mersenne/LucasDwt.h"

#include <gmp.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "frame/Laufzeitfehler.h"
#include "mersenne/DwtTransform.h"
#include "mersenne/MersenneSchritt.h"
#include "primality/HypMpz.h"

namespace sw {

namespace {

// Above this distance from the nearest integer an output may have been rounded to the wrong
// one; the usual outputs of a well-chosen length stay below 0.1.
constexpr double FehlerGrenze = 0.4;

// Iterations between two Jacobi checks. A check reads the residue out and takes one Jacobi
// symbol of p bits, the cost of some dozens of iterations; every few thousand it is noise.
constexpr uint64_t PruefAbstand = 2000;

constexpr size_t GroessteLaenge = size_t(1) << 23;

// The lengths FFTW transforms fastest and accurately: 2^k, 3 2^k, 5 2^k, even and ascending.
// 7 2^k was dropped: its round-off measured twice that of its neighbours at the same word size.
std::vector<size_t> Laengen() {
    std::vector<size_t> l;
    for (size_t m : {1, 3, 5}) {
        for (size_t n = 2 * m; n <= GroessteLaenge; n *= 2) l.push_back(n);
    }
    std::sort(l.begin(), l.end());
    return l;
}

// How many bits a word may carry at length n. The round-off of the convolution grows with the
// square of the word size and about with n; measured with FFTW, the largest error over a run
// stays below 0.2 at 21 bits for 4096 and 19.2 bits for 65536. Short lengths are capped lower:
// the last iterations of a Mersenne prime (S near 2^((p+1)/2)) concentrate the digits, and
// there 22 bits already reached 0.25 to 0.5; they cost nothing anyway.
double SichereBits(size_t n) { return std::min(n < 4096 ? 21.0 : 99.0, 0.5 * (55.0 - std::log2(double(n)))); }

// Words of more bits than this square beyond 2^53 even at the shortest length.
constexpr uint32_t HoechstensBits = 26;

// The table's length for p, or the first length from gewuenscht on; never above p, since every
// word needs a bit at least.
size_t StufeFuer(const std::vector<size_t>& laengen, uint32_t p, size_t gewuenscht) {
    size_t s = 0;
    const auto zuKurz = [&](size_t n) {
        if ((p + n - 1) / n > HoechstensBits) return true;
        return gewuenscht ? n < gewuenscht : double(p) > double(n) * SichereBits(n);
    };
    while (s + 1 < laengen.size() && laengen[s + 1] <= p && zuKurz(laengen[s])) {
        ++s;
    }
    return s;
}

}  // namespace

size_t LucasDwtLaenge(uint32_t p) {
    const std::vector<size_t> l = Laengen();
    return l[StufeFuer(l, p, 0)];
}

struct LucasDwt::Zustand {
    uint32_t p;
    std::vector<size_t> laengen = Laengen();
    size_t stufe = 0;
    std::unique_ptr<DwtTransform> t;
    Mpz m, geprueft, rest, hoch;  // rest: the residue read out; hoch: scratch
    // Iterations since Setzen; the verified residue belongs to geprueftBei.
    uint64_t iteration = 0, geprueftBei = 0;
    double groesster = 0.0;
    uint32_t wiederholungen = 0;
    uint64_t stoerungBei = std::numeric_limits<uint64_t>::max();
    uint64_t faltungsStoerungBei = std::numeric_limits<uint64_t>::max();

    void Laenge(size_t s) {
        stufe = s;
        t = std::make_unique<DwtTransform>(p, laengen[s]);
    }
    bool GroessereLaenge() const { return stufe + 1 < laengen.size() && laengen[stufe + 1] <= p; }

    // For S(i), i >= 2, Jacobi(S - 2, 2^p - 1) = -1: S(2) - 2 = 12 has it, and
    // S(i+1) - 2 = (S(i) - 2) (S(i) + 2) with S(i) + 2 = S(i-1)^2 a square. A residue gone
    // wrong has either sign with even odds. 0 (a common factor) is left as passing.
    bool JacobiStimmt() {
        t->Lesen(rest);
        if (mpz_cmp_ui(rest.get(), 2) < 0) {
            mpz_add(hoch, rest, m);
            mpz_sub_ui(hoch, hoch, 2);
        } else {
            mpz_sub_ui(hoch, rest, 2);
        }
        return mpz_jacobi(hoch, m) != 1;
    }
};

LucasDwt::LucasDwt(uint32_t p) : LucasDwt(p, 0) {}

LucasDwt::LucasDwt(uint32_t p, size_t fftLaenge) : z_(std::make_unique<Zustand>()) {
    if (p < 3) throw Laufzeitfehler(5, "Ungültiger Prozeduraufruf oder ungültiges Argument");
    z_->p = p;
    mpz_setbit(z_->m, p);
    mpz_sub_ui(z_->m, z_->m, 1);
    z_->Laenge(StufeFuer(z_->laengen, p, fftLaenge));
    Setzen({4});
}

LucasDwt::~LucasDwt() = default;

void LucasDwt::Setzen(const std::vector<uint32_t>& s) {
    Zustand& z = *z_;
    mpz_import(z.geprueft, s.size(), -1, sizeof(uint32_t), 0, 0, s.data());
    mpz_mod(z.geprueft, z.geprueft, z.m);
    z.t->Setzen(z.geprueft);
    z.iteration = z.geprueftBei = 0;
    z.stoerungBei = z.faltungsStoerungBei = std::numeric_limits<uint64_t>::max();
}

std::vector<uint32_t> LucasDwt::Wert() const {
    z_->t->Lesen(z_->rest);
    std::vector<uint32_t> w(z_->p / 32 + 1, 0);
    size_t n = 0;
    mpz_export(w.data(), &n, -1, sizeof(uint32_t), 0, 0, z_->rest.get());
    w.resize(std::max<size_t>(n, 1));
    return w;
}

uint32_t LucasDwt::Laufen(uint32_t anzahl) {
    Zustand& z = *z_;
    const uint64_t anfang = z.iteration, ziel = anfang + anzahl;
    while (z.iteration < ziel) {
        if (z.iteration + 1 == z.faltungsStoerungBei) {
            z.t->FaltungStoeren();
            z.faltungsStoerungBei = std::numeric_limits<uint64_t>::max();
        }
        const DwtTransform::Befund befund = z.t->QuadrierenMinusZwei();
        ++z.iteration;
        z.groesster = std::max(z.groesster, befund.rundung);
        if (z.iteration == z.stoerungBei) {
            z.t->Stoeren(0);
            z.stoerungBei = std::numeric_limits<uint64_t>::max();
        }
        // The sum check costs nothing beside the carry pass, so it runs every iteration.
        bool gut = befund.rundung <= FehlerGrenze && befund.summeStimmt;
        if (gut && z.iteration - z.geprueftBei >= PruefAbstand) {
            gut = z.JacobiStimmt();
            if (gut) {
                mpz_set(z.geprueft, z.rest);
                z.geprueftBei = z.iteration;
            }
        }
        if (gut) continue;
        // A wrong sum is taken like too much round-off: the transform cannot be trusted at this
        // length, whether the cause was the rounding or a fault. Back to the verified residue,
        // and the stretch once more at the next larger length,
        // which then stays: a length that failed once is near its limit for this p.
        ++z.wiederholungen;
        z.iteration = z.geprueftBei;
        if (z.GroessereLaenge()) {
            z.Laenge(z.stufe + 1);
            z.t->Setzen(z.geprueft);
            continue;
        }
        // Even the largest length fails. The caller goes on exactly from the verified residue;
        // if that lies before this call, GMP brings it up to where the call began.
        for (; z.iteration < anfang; ++z.iteration) MersenneSchritt(z.geprueft, z.hoch, z.m, z.p);
        z.geprueftBei = z.iteration;
        z.t->Setzen(z.geprueft);
        return uint32_t(z.iteration - anfang);
    }
    return anzahl;
}

bool LucasDwt::IstNull() const {
    z_->t->Lesen(z_->rest);
    return mpz_sgn(z_->rest.get()) == 0;
}

uint64_t LucasDwt::Res64() const {
    z_->t->Lesen(z_->rest);
    mpz_tdiv_r_2exp(z_->hoch, z_->rest, 64);
    uint64_t r = 0;
    mpz_export(&r, nullptr, -1, sizeof(uint64_t), 0, 0, z_->hoch.get());
    return r;
}

size_t LucasDwt::FftLaenge() const { return z_->t->Laenge(); }
bool LucasDwt::GespeichertePlaene() const { return z_->t->GespeichertePlaene(); }
double LucasDwt::GroessterFehler() const { return z_->groesster; }
uint32_t LucasDwt::Wiederholungen() const { return z_->wiederholungen; }
void LucasDwt::StoerenNach(uint32_t iterationen) { z_->stoerungBei = z_->iteration + iterationen; }
void LucasDwt::FaltungStoerenNach(uint32_t iterationen) { z_->faltungsStoerungBei = z_->iteration + iterationen; }

}  // namespace sw
