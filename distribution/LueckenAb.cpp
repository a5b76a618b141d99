#include "distribution/LueckenAb.h"

#include <cmath>
#include <vector>

#include "frame/basZentral.h"
#include "primality/Bpsw.h"
#include "primality/PrimSuche.h"
#include "sieve/RasterTabellen.h"
#include "sieve/basSekundaer.h"

namespace sw {

namespace {

void setzen(mpz_ptr z, Zahl128 v) {
    mpz_set_ui(z, uint64_t(v >> 64));
    mpz_mul_2exp(z, z, 64);
    mpz_add_ui(z, z, uint64_t(v));
}

Zahl128 lesen(mpz_srcptr z) {
    Mpz hoch;
    mpz_fdiv_q_2exp(hoch, z, 64);
    return (Zahl128(mpz_get_ui(hoch)) << 64) | Zahl128(mpz_getlimbn(z, 0));
}

double lnVon(mpz_srcptr z) {
    long exponent = 0;
    const double m = mpz_get_d_2exp(&exponent, z);
    return std::log(m) + double(exponent) * std::log(2.0);
}

Zahl128 wurzel(Zahl128 n) {
    Zahl128 w = Zahl128(std::sqrt(double(n)));
    while (w * w > n) --w;
    while ((w + 1) * (w + 1) <= n) ++w;
    return w;
}

// The walk's state: the previous prime and the largest gap so far; each new prime closes a gap.
class Gang {
public:
    Gang(const LueckenFrage& f, const std::function<bool(const LueckenZeile&)>& zeile) : f_(f), zeile_(zeile) {}

    // False once the walk is over (enough lines, or stopped by zeile).
    bool Prim(mpz_srcptr q, bool bewiesen) {
        if (hat_) {
            Mpz d;
            mpz_sub(d, q, vorige_);
            const uint64_t g = mpz_get_ui(d);
            ++nummer_;
            const bool rekord = g > groesste_;
            if (rekord) groesste_ = g;
            if (g >= f_.mindestens && (f_.genau == 0 || g == f_.genau)) {
                LueckenZeile z;
                z.p = vorige_;
                z.luecke = g;
                z.merit = double(g) / lnVon(vorige_);
                z.rekord = rekord;
                z.bewiesen = bewiesen && vorigeBewiesen_;
                z.nummer = nummer_;
                if (!zeile_(z) || ++zeilen_ >= f_.anzahl) return false;
            }
        }
        mpz_set(vorige_, q);
        vorigeBewiesen_ = bewiesen;
        hat_ = true;
        return true;
    }

private:
    const LueckenFrage& f_;
    const std::function<bool(const LueckenZeile&)>& zeile_;
    Mpz vorige_;
    bool vorigeBewiesen_ = true;
    bool hat_ = false;
    uint64_t groesste_ = 0, nummer_ = 0, zeilen_ = 0;
};

// Windows grow from 4,096 words (half a million numbers: a short list at a great height needs
// no more) to 2^18 words, where the start offsets of the sieving primes are paid rarely.
constexpr uint64_t FensterAnfang = 4096, FensterGroesste = uint64_t(1) << 18;

bool imFenster(Zahl128& a, Gang& gang, const std::function<bool(const Mpz&)>& melden, bool& ende) {
    // The sieving primes come from the raster as it stands: a raster below the square root
    // leaves survivors that BPSW decides.
    const Zahl128 rasterGrenze = PrimaerGrenze.Betrag();
    std::vector<uint32_t> raster;
    Mpz q;
    for (uint64_t woerter = FensterAnfang;; woerter = std::min(2 * woerter, FensterGroesste)) {
        const Zahl128 basis = a / RasterSpanne * RasterSpanne;
        const Zahl128 letzte = basis + Zahl128(woerter) * RasterSpanne - 1;
        if (letzte >> 127) return true;  // beyond the windows' reach: the walk goes on from a
        const Zahl128 w = wurzel(letzte);
        const uint64_t grenze = uint64_t(std::min(w, rasterGrenze));
        const bool exakt = Zahl128(grenze) >= w;
        raster.assign(woerter, 0);
        SekundaerFensterSieben(raster.data(), woerter, basis, grenze);
        // 2, 3 and 5 have no bit.
        for (uint32_t klein : {2u, 3u, 5u}) {
            if (Zahl128(klein) >= a && Zahl128(klein) <= letzte && !gang.Prim(Mpz(klein), true)) return ende = true;
        }
        bool weiter = true;
        FreieBitsDurchlaufen(raster.data(), 0, woerter, basis, a, letzte, [&](Zahl128 n) {
            setzen(q, n);
            bool bewiesen = exakt;
            if (!exakt) {
                if (!BpswTest(q.get())) return true;
                bewiesen = BpswBeweist(q.get());
            }
            return weiter = gang.Prim(q, bewiesen);
        });
        if (!weiter) return ende = true;
        setzen(q, letzte);
        if (melden && !melden(q)) return false;
        a = letzte + 1;
    }
}

}  // namespace

bool LueckenAb(const Mpz& start, const LueckenFrage& frage, const std::function<bool(const LueckenZeile&)>& zeile,
               const std::function<bool(const Mpz&)>& melden) {
    if (frage.anzahl == 0) return true;
    Gang gang(frage, zeile);
    Mpz n(start);
    if (mpz_sgn(n.get()) < 0) mpz_set_ui(n, 0);
    bool ende = false;
    if (mpz_sizeinbase(n.get(), 2) < 127 && !PrimaerRaster.empty()) {
        Zahl128 a = lesen(n);
        if (!imFenster(a, gang, melden, ende)) return false;
        if (ende) return true;
        setzen(n, a);
    }
    // Beyond the windows: one probable prime after the other.
    mpz_sub_ui(n, n, 1);
    for (uint64_t schritt = 1;; ++schritt) {
        const PrimFund f = NaechstePrimzahl(n);
        if (!f.gefunden) return true;
        if (!gang.Prim(f.zahl, f.bewiesen)) return true;
        n = f.zahl;
        if ((schritt & 63) == 0 && melden && !melden(n)) return false;
    }
}

}  // namespace sw
