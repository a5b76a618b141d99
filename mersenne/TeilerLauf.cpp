#include "mersenne/TeilerLauf.h"

#include <algorithm>
#include <exception>
#include <vector>

#include "frame/Decimal.h"
#include "frame/Laufzeitfehler.h"
#include "frame/Oberflaeche.h"
#include "frame/basZentral.h"
#include "mersenne/TeilerSuche.h"
#include "mersenne/basDB.h"
#include "sieve/RasterTabellen.h"
#include "zahlkern/zahlkern.h"

namespace sw {

namespace {

// The window stays responsive and the CLI sees Ctrl-C: a yield after every segment of a long
// exponent (a few milliseconds each), else every kYieldSekunden or kYieldExponenten exponents.
constexpr double kYieldSekunden = 0.02;
constexpr uint32_t kYieldExponenten = 64;
constexpr double kFestschreibenSekunden = 0.5;
constexpr uint32_t kStueck = 1u << 20;        // exponents sieved at a time

// The primes in [von, bis] (bis - von < kStueck), by a sieve of the odd numbers with the
// primes up to the root of 2^32.
void primzahlenIn(uint32_t von, uint32_t bis, std::vector<uint32_t>& aus) {
    static const std::vector<uint32_t> basis = [] {
        std::vector<uint8_t> z(65536, 0);
        std::vector<uint32_t> l;
        for (uint32_t i = 3; i < 65536; i += 2) {
            if (z[i]) continue;
            l.push_back(i);
            for (uint32_t j = i * i; j < 65536; j += 2 * i) z[j] = 1;
        }
        return l;
    }();
    aus.clear();
    if (von <= 2 && bis >= 2) aus.push_back(2);
    const uint64_t erste = std::max<uint64_t>(3, von | 1);
    if (erste > bis) return;
    std::vector<uint8_t> gestrichen((bis - erste) / 2 + 1, 0);  // index i: erste + 2i
    for (uint32_t r : basis) {
        const uint64_t rr = uint64_t(r) * r;
        if (rr > bis) break;
        uint64_t m = std::max(rr, (erste + r - 1) / r * r);
        if (m % 2 == 0) m += r;
        for (; m <= bis; m += 2 * r) gestrichen[(m - erste) / 2] = 1;
    }
    for (size_t i = 0; i < gestrichen.size(); ++i)
        if (!gestrichen[i]) aus.push_back(uint32_t(erste + 2 * i));
}

uint64_t primAnzahl(uint32_t von, uint32_t bis) {
    uint64_t n = 0;
    std::vector<uint32_t> l;
    for (uint64_t a = von; a <= bis; a += kStueck) {
        primzahlenIn(uint32_t(a), uint32_t(std::min<uint64_t>(bis, a + kStueck - 1)), l);
        n += l.size();
    }
    return n;
}

std::string erster(const std::string& teiler) { return teiler.substr(0, teiler.find('x')); }

// One run's walk; the members are the state a stop must leave consistent.
class Lauf {
public:
    Lauf(const TeilerLaufAuftrag& a, TeilerLaufAnzeige* anzeige) : a_(a), anzeige_(anzeige) {}

    void Exponenten(DbTransaktion& t) {
        const uint64_t bis = a_.bis == 0 ? uint64_t(GrenzeLong) : a_.bis;
        std::vector<uint32_t> primzahlen;
        for (uint64_t stueck = a_.von; stueck <= bis && !ende_; stueck += kStueck) {
            primzahlenIn(uint32_t(stueck), uint32_t(std::min<uint64_t>(bis, stueck + kStueck - 1)), primzahlen);
            for (uint32_t p : primzahlen) {
                ExponentBearbeiten(p);
                t.FestschreibenNach(kFestschreibenSekunden);
                if (!ende_) nachgeben(p, 0);
                if (ende_) break;
            }
        }
    }

    TeilerLaufBefund befund;
    std::exception_ptr fehler;  // a yield that threw: rethrown once everything is committed

private:
    void ExponentBearbeiten(uint32_t p) {
        befund.letzter = p;
        ++befund.exponenten;
        if (anzeige_ != nullptr) anzeige_->Exponent(p);
        int32_t mersenne = 0, pot = 0;
        std::string teiler;
        PrimLesen(int32_t(p), mersenne, teiler, pot);  // brings in p's segment for the counts
        if (p / a_.intervall != intervall_) statistikNeu(p);
        ++statistik_.intervallAnzahl;
        const int64_t KGeprueft = TeilerPotWert(pot);
        // The stored limit never falls; a short-form limit is written back in plain form.
        const int64_t grenze = std::min<int64_t>(std::max<int64_t>(KGeprueft, int64_t(a_.KZiel)), INT32_MAX);
        if (aIsInMers(int32_t(p)) != 0) {
            if (mersenne != 1 || pot != grenze) PrimSchreiben(int32_t(p), 1, "0", int32_t(grenze));
            ++statistik_.intervallMitStatus;
            return;
        }
        if (mersenne != 0) {
            if (anzeige_ != nullptr) anzeige_->Teiler(p, erster(teiler), false);
            ++statistik_.intervallMitStatus;
            return;
        }
        if (int64_t(a_.KZiel) <= KGeprueft) {
            if (pot != KGeprueft && KGeprueft <= INT32_MAX) PrimSchreiben(int32_t(p), 0, "0", int32_t(KGeprueft));
            return;
        }
        ++befund.gesucht;
        suche_.Exponent(p);
        const TeilerFund f =
            suche_.TeilerSuchen(uint64_t(KGeprueft), a_.KZiel, [&](uint64_t k) { return nachgeben(p, k); });
        switch (f.ergebnis) {
        case TeilerErgebnis::Gefunden: {
            const std::string q = Decimal::ausBreit(Decimal::Breit(f.q)).Text();
            PrimSchreiben(int32_t(p), 2, q, int32_t(a_.KZiel));
            ++befund.gefunden;
            ++statistik_.neu;
            ++statistik_.intervallMitStatus;
            ++DbAnzahlMitStatus;
            if (anzeige_ != nullptr) {
                anzeige_->Teiler(p, q, true);
                anzeige_->Statistik(statistik());
            }
            break;
        }
        case TeilerErgebnis::Keiner:
            PrimSchreiben(int32_t(p), 0, "0", int32_t(a_.KZiel));
            break;
        case TeilerErgebnis::Abgebrochen:
            // Every k up to the point reached has been tried: that much is kept.
            if (int64_t(f.k) > KGeprueft) PrimSchreiben(int32_t(p), 0, "0", int32_t(f.k));
            ende_ = true;
            break;
        }
    }

    // The yield (k = 0 between exponents, else the k reached); false (and the run ends) on
    // Abbruch or when the yield threw.
    bool nachgeben(uint32_t p, uint64_t k) {
        if (ende_) return false;
        const double jetzt = Timer();
        if (k == 0 && ++seitYield_ < kYieldExponenten && jetzt - gegeben_ < kYieldSekunden) return true;
        seitYield_ = 0;
        gegeben_ = jetzt;
        if (anzeige_ != nullptr) {
            if (k > 0) anzeige_->Stand(p, k);
            anzeige_->Statistik(statistik());
        }
        try {
            DoEvents();
        } catch (...) {
            fehler = std::current_exception();
            ende_ = true;
            befund.abgebrochen = true;
            return false;
        }
        if (Abbruch) {
            ende_ = true;
            befund.abgebrochen = true;
        }
        return !ende_;
    }

    // The counters of a new counting interval: the database's rows in it, and the exponents
    // from its start up to p (p itself is counted as it is taken up).
    void statistikNeu(uint32_t p) {
        intervall_ = p / a_.intervall;
        const uint32_t lo = intervall_ * a_.intervall;
        ZaehleBereich(lo, int64_t(lo) + a_.intervall);
        statistik_.intervallAnzahl = int64_t(primAnzahl(lo, p - 1));
        statistik_.intervallMitStatus = p > lo ? ZaehleIntervall(int32_t(p - 1), int32_t(a_.intervall)) : 0;
    }

    TeilerStatistik statistik() {
        statistik_.dbGesamt = DbAnzahlGesamt;
        statistik_.dbMitStatus = DbAnzahlMitStatus;
        return statistik_;
    }

    const TeilerLaufAuftrag& a_;
    TeilerLaufAnzeige* anzeige_;
    TeilerStatistik statistik_;
    TeilerSuche suche_;  // one for all exponents, so that its buffers stay
    uint32_t intervall_ = UINT32_MAX;
    double gegeben_ = Timer();
    uint32_t seitYield_ = 0;
    bool ende_ = false;
};

}  // namespace

TeilerLaufBefund TeilerLauf(const TeilerLaufAuftrag& auftrag, TeilerLaufAnzeige* anzeige) {
    if (auftrag.KZiel < 1 || auftrag.KZiel > TeilerKZielMax || auftrag.intervall < 1 ||
        (auftrag.bis != 0 && auftrag.bis < auftrag.von) || auftrag.von > uint32_t(GrenzeLong))
        throw Laufzeitfehler(5);
    const double start = Timer();
    DbOeffnenPflicht(DbSegment(auftrag.von));
    struct Schliessen {
        ~Schliessen() { DbSchliessen(); }
    } schliessen;
    Lauf lauf(auftrag, anzeige);
    {
        DbTransaktion t;
        lauf.Exponenten(t);
    }
    lauf.befund.sekunden = Timer() - start;
    if (lauf.fehler) std::rethrow_exception(lauf.fehler);
    return lauf.befund;
}

}  // namespace sw
