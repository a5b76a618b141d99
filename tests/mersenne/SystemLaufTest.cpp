// The systematic search: its walk from 1 against the orders PARI/GP gives, its fast orders and
// exponents against the plain doubling loop and the downward walk through the primes, its
// entries in the database (whole lists, questions, limits) and its refusals.
#include <gmp.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <random>

#include "DbTestBasis.h"
#include "SystemReferenz.h"
#include "frame/Texte.h"
#include "frame/basZentral.h"
#include "mersenne/SystemLauf.h"
#include "primality/Bpsw.h"
#include "primality/HypMpz.h"
#include "sieve/RasterTabellen.h"

namespace sw::test {
namespace {

class SystemLaufTest : public DbTest {};

struct Sammler : SystemAnzeige {
    std::vector<SystemErgebnis> ergebnisse;
    std::vector<std::string> neu;
    uint64_t ohne = 0;
    bool merken = true;
    void Ergebnis(const SystemErgebnis& e) override {
        if (e.ordnung == 0) ++ohne;
        if (merken) ergebnisse.push_back(e);
    }
    void NeuerTeiler(const std::string& q, int32_t e, bool eingetragen) override {
        neu.push_back(q + "|" + std::to_string(e) + (eingetragen ? "+" : ""));
    }
};

SystemAuftrag ohneDb(const std::string& von, const std::string& bis) {
    SystemAuftrag a;
    a.start = von;
    a.ende = bis;
    a.datenbank = false;
    return a;
}

TEST_F(SystemLaufTest, VonEinsBisHundertsiebenundzwanzigUndZehnHochFuenf) {
    Sammler s;
    const SystemBefund b = SystemLauf(ohneDb("1", "127"), &s);
    std::vector<std::string> zeilen;
    for (const SystemErgebnis& e : s.ergebnisse) zeilen.push_back(TeilerAnzeigen(e));
    const std::string t = " \tk = ";
    EXPECT_EQ(zeilen, (std::vector<std::string>{
                          "23" + TextP1(167, 11) + t + "1", "31" + TextP1(167, 5) + t + "3", "41 ---",
                          "47" + TextP1(167, 23) + t + "1", "71 ---", "73 ---", "79 ---",
                          "89" + TextP1(167, 11) + t + "4", "97 ---", "103 ---", "113 ---",
                          "127" + TextP1(167, 7) + t + "9"}));
    // 5 and 7 are Mersenne prime exponents: only 23, 47 and 89 are divisors to report.
    EXPECT_EQ(s.neu, (std::vector<std::string>{"23|11", "47|23", "89|11"}));
    EXPECT_EQ(b.letzte, "127");

    // A start past 23 begins at the first wheel number from it on; a start on a prime takes it.
    Sammler ab24, ab89;
    SystemLauf(ohneDb("24", "48"), &ab24);
    SystemLauf(ohneDb("89", "97"), &ab89);
    ASSERT_EQ(ab24.ergebnisse.size(), 3u);
    EXPECT_EQ(ab24.ergebnisse[0].q, "31");
    ASSERT_EQ(ab89.ergebnisse.size(), 2u);
    EXPECT_EQ(ab89.ergebnisse[0].q, "89");

    // PARI/GP: primes q = +-1 mod 8 from 23 below 10^5 with znorder(Mod(2,q)) prime, and not.
    Sammler bis1e5;
    bis1e5.merken = false;
    const SystemBefund g = SystemLauf(ohneDb("1", "100000"), &bis1e5);
    EXPECT_EQ(g.mitOrdnung, 584u);
    EXPECT_EQ(bis1e5.ohne, 4197u);
}

// PARI/GP's znorder over the primes q = +-1 mod 8 in [10^9, 10^9 + 10^7]: 13,568 prime orders.
TEST_F(SystemLaufTest, ZehnHochNeun) {
    Sammler s;
    s.merken = false;
    const SystemBefund b = SystemLauf(ohneDb("1000000000", "1010000000"), &s);
    EXPECT_EQ(b.mitOrdnung, 13568u);
    EXPECT_EQ(s.ohne, 227367u);
    EXPECT_EQ(b.primzahlen, 13568u + 227367u);
}

TEST_F(SystemLaufTest, OrdnungGleichVerdoppeln) {
    std::mt19937_64 zufall(18);
    Mpz q;
    // Odd q of every kind (composites too), with the full bound and with a bound that may cut.
    for (int i = 0; i < 300; ++i) {
        const uint64_t z = (zufall() % 1000000) | 1;
        if (z < 3) continue;
        const int64_t grenze = i % 2 == 0 ? int64_t(z - 1) : int64_t(zufall() % z);
        mpz_set_ui(q, z);
        ASSERT_EQ(OrdnungBerechnen(q, int32_t(grenze)), OrdnungVerdoppeln(z, grenze)) << z << " " << grenze;
    }
    // Wide divisors of Mersenne numbers (PARI/GP): of 2^59-1, 2^67-1, 2^73-1, 2^79-1, and of
    // 2^83-1 one beyond 2^64.
    for (const char* text : {"3203431780337", "761838257287", "9361973132609", "1113491139767",
                             "57912614113275649087721"}) {
        mpz_set_str(q, text, 10);
        for (int64_t grenze : {50, 100, 2000}) {
            EXPECT_EQ(OrdnungBerechnen(q, int32_t(grenze)), OrdnungVerdoppeln(q, grenze)) << text << " " << grenze;
        }
    }
}

// q - 1 = 2 m p P with p the exponent to find, P a prime above GrenzeLong (or 1) and m the
// smallest factor that makes q prime: every prime factor of q - 1 up to GrenzeLong is p or
// below 1000, so the walk may start at oben.
Mpz gebaut(const std::vector<uint64_t>& faktoren, mpz_srcptr gross) {
    Mpz q;
    for (uint64_t m = 1;; ++m) {
        mpz_set(q, gross);
        mpz_mul_ui(q, q, 2 * m);
        for (uint64_t f : faktoren) mpz_mul_ui(q, q, f);
        mpz_add_ui(q, q, 1);
        if (BpswTest(q)) return q;
    }
}

TEST_F(SystemLaufTest, ExponentGleichWalkDurchDiePrimzahlen) {
    Mpz gross(2000000011ul), eins(1ul), riesig;
    mpz_ui_pow_ui(riesig, 2, 70);
    mpz_nextprime(riesig, riesig);
    // The bound of parameter 1 is 999,840: 999,853 is above it, 999,809 below.
    const std::vector<Mpz> eins_qs = {gebaut({999853}, gross), gebaut({999809}, gross),
                                      gebaut({1000003, 1299709}, eins), gebaut({1299709, 1299709}, gross),
                                      gebaut({1299709}, riesig), gebaut({999809, 999809}, eins)};
    std::vector<mpz_srcptr> qs;
    for (const Mpz& q : eins_qs) qs.push_back(q);
    const std::vector<int64_t> walk = ExponentWalk(qs, 1, 1400000);
    EXPECT_EQ(walk, (std::vector<int64_t>{999853, 1000000, 1299709, 1299709, 1299709, 1000000}));
    for (size_t i = 0; i < qs.size(); ++i) {
        ASSERT_GE(mpz_cmp_ui(qs[i], uint32_t(GrenzeLong)), 0);
        const int32_t p = ExponentSuchen(qs[i], 1);
        EXPECT_EQ(p, walk[i]) << i;
        // The order found up to that bound is the one the doubling finds.
        EXPECT_EQ(OrdnungBerechnen(qs[i], p), OrdnungVerdoppeln(qs[i], p)) << i;
    }
    // Parameter 50: the bound is 49,999,800, and 49,999,801 just above it counts.
    const Mpz q50 = gebaut({49999801}, gross);
    EXPECT_EQ(ExponentSuchen(q50, 50), 49999801);
    EXPECT_EQ(ExponentSuchen(q50, 49), 49999801);
    const Mpz unter50 = gebaut({1299709}, gross);
    EXPECT_EQ(ExponentSuchen(unter50, 50), 50000000);
}

TEST_F(SystemLaufTest, EintraegeInDieDatenbank) {
    DbOrdnerSetzen(Ordner());
    // 11 knows 23 already, with a list longer than any cut would keep; 23 has a limit above
    // GrenzeLong that must not fall.
    std::string lang = "23";
    while (lang.size() < 120) lang += "x1234567890123";
    PrimSchreiben(11, 2, lang, 1000);
    PrimSchreiben(23, 0, "0", INT32_MAX);
    DbSchliessen();

    SystemAuftrag a = ohneDb("1", "130");
    a.datenbank = true;
    a.eintrag = SystemEintrag::Immer;
    Sammler s;
    const SystemBefund b = SystemLauf(a, &s);
    EXPECT_EQ(s.neu, (std::vector<std::string>{"47|23+", "89|11+"}));
    EXPECT_EQ(b.eingetragen, 2u);
    EXPECT_TRUE(ui.meldungen.empty());
    EXPECT_EQ(PrimZeileLesen(11).teiler, lang + "x89");
    EXPECT_EQ(PrimZeileLesen(11).teilerPot, GrenzeLong);
    EXPECT_EQ(PrimZeileLesen(23).teiler, "47");
    EXPECT_EQ(PrimZeileLesen(23).mersenne, 2);
    EXPECT_EQ(PrimZeileLesen(23).teilerPot, INT32_MAX);
    EXPECT_FALSE(PrimZeileLesen(5).vorhanden);  // 31 divides 2^5-1, a Mersenne prime
    DbSchliessen();

    // A second run finds nothing new; asked, "no" leaves the row and "cancel" ends the run.
    Sammler zweiter;
    a.eintrag = SystemEintrag::Fragen;
    EXPECT_EQ(SystemLauf(a, &zweiter).neu, 0u);
    EXPECT_TRUE(ui.meldungen.empty());
    a.start = "130";
    a.ende = "1000";
    ui.antworten = {AntwortNein, AntwortAbbrechen};
    Sammler dritter;
    const SystemBefund c = SystemLauf(a, &dritter);
    ASSERT_EQ(ui.meldungen.size(), 2u);
    EXPECT_EQ(ui.meldungen[0].text, Text(1841));
    EXPECT_EQ(ui.meldungen[0].titel, Text(1842));
    EXPECT_TRUE(c.abgebrochen);
    EXPECT_EQ(c.eingetragen, 0u);
    ASSERT_EQ(dritter.neu.size(), 2u);
    EXPECT_EQ(dritter.neu[0], "167|83");  // reported, not entered
    EXPECT_FALSE(PrimZeileLesen(83).vorhanden);
    EXPECT_EQ(c.letzte, dritter.ergebnisse.back().q);
    Abbruch = false;
}

TEST_F(SystemLaufTest, Ablehnungen) {
    auto beschreibung = [](auto&& f) {
        try {
            f();
        } catch (const Laufzeitfehler& e) {
            return e.Beschreibung();
        }
        return std::string();
    };
    SystemAuftrag a = ohneDb("1", "1000");
    for (int32_t p : {0, 51, -3}) {
        a.parameter = p;
        EXPECT_EQ(beschreibung([&] { SystemLauf(a, nullptr); }), Text(1840)) << p;
    }
    Mpz q(2000000011ul);
    EXPECT_EQ(beschreibung([&] { ExponentSuchen(q, 0); }), Text(1840));
    a.parameter = 1;
    a.start = "1000";
    EXPECT_EQ(beschreibung([&] { SystemLauf(a, nullptr); }), TextP1P2(1843, "1000", "1000"));
    a.start = "12a";
    EXPECT_EQ(GeworfeneNummer([&] { SystemLauf(a, nullptr); }), int(FehlerTypenUnvertraeglich));
    // A database that cannot be opened stops the run before the walk, with its reason.
    a = ohneDb("1", "1000");
    a.datenbank = true;
    std::filesystem::create_directories(Ordner() + "Prim.db");
    DbOrdnerSetzen(Ordner());
    Sammler s;
    EXPECT_EQ(GeworfeneNummer([&] { SystemLauf(a, &s); }), DbFehlerNummer);
    EXPECT_TRUE(s.ergebnisse.empty());
}

}  // namespace
}  // namespace sw::test
