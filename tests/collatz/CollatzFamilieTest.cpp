// The number families against GMP: the known figures of factorials, Fibonacci numbers,
// primorials and 2^100 +- 1 each against a plain GMP walk; every family stepped many times
// against the member GMP builds from scratch; the formula text; and the rows and refusals
// that stand where a silent wrong count would otherwise be.
#include <gmp.h>
#include <gtest/gtest.h>

#include <string>

#include "TestUmgebung.h"
#include "collatz/CollatzFamilie.h"
#include "frame/Laufzeitfehler.h"
#include "frame/Texte.h"
#include "frame/basZentral.h"
#include "primality/HypMpz.h"

namespace sw::test {
namespace {

class CollatzFamilie_ : public SwTest {};

// The obvious walk: trailing zeros by scan1, then 3n + 1; "steps.mults".
std::string gmpWalk(const Mpz& start) {
    Mpz n(start);
    uint64_t schritte = 0, mult = 0;
    if (mpz_sgn(n.get()) == 0) return "0.0";
    while (mpz_cmp_ui(n.get(), 1) != 0) {
        const mp_bitcnt_t z = mpz_scan1(n, 0);
        if (z > 0) {
            mpz_tdiv_q_2exp(n, n, z);
            schritte += z;
            continue;
        }
        mpz_mul_ui(n, n, 3);
        mpz_add_ui(n, n, 1);
        ++mult;
        ++schritte;
    }
    return std::to_string(schritte) + "." + std::to_string(mult);
}

FamilienAuftrag auftrag(FamilienArt art, int32_t start, FamilienOperator op = FamilienOperator::Plus,
                        int32_t offset = 0) {
    FamilienAuftrag a;
    a.art = art;
    a.start = start;
    a.op = op;
    a.offset = offset;
    return a;
}

std::string zeile(const FamilienAuftrag& a) { return FamilienZeileText(CollatzFamilie(a).Zaehlen()); }

TEST_F(CollatzFamilie_, BekannteZahlenWieDieGmpSchleife) {
    using A = FamilienArt;
    using O = FamilienOperator;
    Mpz w;
    mpz_fac_ui(w, 10);
    EXPECT_EQ(gmpWalk(w), "66.17");
    EXPECT_EQ(zeile(auftrag(A::Fakultaet, 10)), "10! ; 66.17");
    mpz_fac_ui(w, 100);
    EXPECT_EQ(gmpWalk(w), "3322.1082");
    EXPECT_EQ(zeile(auftrag(A::Fakultaet, 100)), "100! ; 3322.1082");
    mpz_fac_ui(w, 1000);
    EXPECT_EQ(gmpWalk(w), "56398.18518");
    EXPECT_EQ(zeile(auftrag(A::Fakultaet, 1000)), "1000! ; 56398.18518");
    mpz_fib_ui(w, 100);
    EXPECT_EQ(gmpWalk(w), "477.158");
    EXPECT_EQ(zeile(auftrag(A::Fibonacci, 100)), "F(100) ; 477.158");
    // The product of the primes up to 100 ends with 97: the family moves n to a prime.
    mpz_primorial_ui(w, 100);
    EXPECT_EQ(gmpWalk(w), "545.164");
    EXPECT_EQ(zeile(auftrag(A::Primorial, 97)), "97# ; 545.164");
    EXPECT_EQ(zeile(auftrag(A::Primorial, 96)), "97# ; 545.164");
    mpz_ui_pow_ui(w, 2, 100);
    mpz_sub_ui(w, w, 1);
    EXPECT_EQ(gmpWalk(w), "1465.528");
    EXPECT_EQ(zeile(auftrag(A::Zweierpotenz, 100, O::Minus, 1)), "2^100-1 ; 1465.528");
    EXPECT_EQ(zeile(auftrag(A::Zweierpotenz, 100, O::Plus, -1)), "2^100-1 ; 1465.528");
    mpz_add_ui(w, w, 2);
    EXPECT_EQ(gmpWalk(w), "643.210");
    EXPECT_EQ(zeile(auftrag(A::Zweierpotenz, 100, O::Plus, 1)), "2^100+1 ; 643.210");
    EXPECT_EQ(zeile(auftrag(A::Fakultaet, 1)), "1! ; 0.0");
    EXPECT_EQ(zeile(auftrag(A::Fakultaet, 0)), "0! ; 0.0");
    // Power and quotient against GMP as well.
    mpz_fac_ui(w, 30);
    mpz_pow_ui(w, w, 3);
    EXPECT_EQ(zeile(auftrag(A::Fakultaet, 30, O::Hoch, 3)), "30!^3 ; " + gmpWalk(w));
    mpz_fib_ui(w, 300);
    mpz_tdiv_q_ui(w, w, 7);
    EXPECT_EQ(zeile(auftrag(A::Fibonacci, 300, O::Durch, 7)), "F(300)/7 ; " + gmpWalk(w));
}

// The member GMP builds from scratch for family art at n.
Mpz gmpGlied(FamilienArt art, unsigned long n, const Mpz& formelWert) {
    Mpz w;
    switch (art) {
        case FamilienArt::Fakultaet: mpz_fac_ui(w, n); break;
        case FamilienArt::Zahl: mpz_set_ui(w, n); break;
        case FamilienArt::Quadrat: mpz_ui_pow_ui(w, n, 2); break;
        case FamilienArt::Kubus: mpz_ui_pow_ui(w, n, 3); break;
        case FamilienArt::Zweierpotenz: mpz_ui_pow_ui(w, 2, n); break;
        case FamilienArt::Primzahl: mpz_set_ui(w, n); break;
        case FamilienArt::Primorial: mpz_primorial_ui(w, n); break;
        case FamilienArt::PrimorialUng: mpz_primorial_ui(w, n); mpz_tdiv_q_ui(w, w, 2); break;
        case FamilienArt::Fibonacci: mpz_fib_ui(w, n); break;
        case FamilienArt::Formel: w = formelWert; break;
    }
    return w;
}

TEST_F(CollatzFamilie_, GeschrittenWieVonGrundAufGebaut) {
    // Every family from a few starts and steps: the running value, moved one operation per
    // step, must equal the member built anew, and n of the prime families must be the primes
    // in order.
    for (int art = 0; art < FamilienAnzahl; ++art) {
        for (int32_t start : {0, 1, 2, 13, 90}) {
            for (int32_t schritt : {1, 3}) {
                FamilienAuftrag a = auftrag(FamilienArt(art), start);
                a.schritt = schritt;
                a.formel = "3*N^2+n+1";
                CollatzFamilie f(a);
                Mpz p;
                mpz_set_ui(p, unsigned(start < 3 && art == 7 ? 3 : start));
                if (art >= 5 && art <= 7 && !mpz_probab_prime_p(p, 30)) mpz_nextprime(p, p);
                for (int i = 0; i < 40; ++i) {
                    const unsigned long n = art >= 5 && art <= 7 ? mpz_get_ui(p) : unsigned(start + i * schritt);
                    ASSERT_EQ(unsigned(f.N()), n) << art << " " << start << " " << i;
                    Mpz formel;
                    mpz_set_ui(formel, 3 * n * n + n + 1);
                    ASSERT_EQ(mpz_cmp(Mpz(f.Basis()), gmpGlied(FamilienArt(art), n, formel)), 0)
                        << art << " " << start << " " << i;
                    f.Weiter();
                    for (int k = 0; k < schritt; ++k) mpz_nextprime(p, p);
                }
            }
        }
    }
}

TEST_F(CollatzFamilie_, FormelOhneWirkungsloseOperanden) {
    using A = FamilienArt;
    using O = FamilienOperator;
    EXPECT_EQ(CollatzFamilie(auftrag(A::Fakultaet, 5, O::Hoch, 1)).Formel(), "n!");
    EXPECT_EQ(CollatzFamilie(auftrag(A::Fakultaet, 5, O::Durch, 0)).Formel(), "n!");
    EXPECT_EQ(CollatzFamilie(auftrag(A::Fakultaet, 5, O::Durch, 1)).Formel(), "n!");
    EXPECT_EQ(CollatzFamilie(auftrag(A::Fakultaet, 5, O::Mal, 1)).Formel(), "n!");
    EXPECT_EQ(CollatzFamilie(auftrag(A::Fakultaet, 5, O::Plus, 0)).Formel(), "n!");
    EXPECT_EQ(CollatzFamilie(auftrag(A::Fakultaet, 5, O::Minus, 0)).Formel(), "n!");
    // What they leave out also leaves the member alone: 120 by division by 0 stays 120.
    EXPECT_EQ(zeile(auftrag(A::Fakultaet, 5, O::Durch, 0)), "5! ; " + gmpWalk(Mpz(120)));
    EXPECT_EQ(zeile(auftrag(A::Fakultaet, 5, O::Hoch, 0)), "5!^0 ; 0.0");
    EXPECT_EQ(zeile(auftrag(A::Fakultaet, 5, O::Mal, 0)), "5!*0 ; 0.0");
    EXPECT_EQ(CollatzFamilie(auftrag(A::Fakultaet, 5, O::Minus, -3)).Formel(), "n!+3");
    FamilienAuftrag f = auftrag(A::Formel, 4, O::Mal, 3);
    f.formel = " N^2+n ";
    EXPECT_EQ(zeile(f), "(4^2+4)*3 ; " + gmpWalk(Mpz(60)));
    EXPECT_EQ(zeile(auftrag(A::Primzahl, 8, O::Plus, 2)), "Prim 11+2 ; " + gmpWalk(Mpz(13)));
}

TEST_F(CollatzFamilie_, MeldungenStattStillerFehler) {
    using A = FamilienArt;
    using O = FamilienOperator;
    // Below 0 the library would leave the number as it was: the row says it was not counted.
    const FamilienZeile unter = CollatzFamilie(auftrag(A::Zahl, 4, O::Minus, 5)).Zaehlen();
    EXPECT_EQ(unter.stand, FamilienStand::UnterNull);
    EXPECT_EQ(FamilienZeileText(unter), "4-5 ; " + Text(2080));
    EXPECT_EQ(zeile(auftrag(A::Zahl, 5, O::Minus, 5)), "5-5 ; 0.0");
    // A power past the largest size is refused before it is built.
    try {
        CollatzFamilie(auftrag(A::Zweierpotenz, 1000000, O::Hoch, 200)).Zaehlen();
        ADD_FAILURE() << "no refusal";
    } catch (const Laufzeitfehler& e) {
        EXPECT_EQ(e.Nummer(), FehlerUeberlauf);
    }
    // The prime family ends at the largest n with a message, never with rows of 0.
    CollatzFamilie p(auftrag(A::Primzahl, 2147483640));
    EXPECT_EQ(p.N(), 2147483647);
    try {
        p.Weiter();
        ADD_FAILURE() << "no end";
    } catch (const Laufzeitfehler& e) {
        EXPECT_EQ(e.Beschreibung(), TextP1(2082, 2147483647));
    }
    CollatzFamilie z(auftrag(A::Zahl, 2147483646));
    z.Weiter();
    EXPECT_THROW(z.Weiter(), Laufzeitfehler);
    // Refused orders.
    FamilienAuftrag a = auftrag(A::Fakultaet, -1);
    EXPECT_THROW(CollatzFamilie{a}, Laufzeitfehler);
    a = auftrag(A::Fakultaet, 1);
    a.schritt = -1;
    EXPECT_THROW(CollatzFamilie{a}, Laufzeitfehler);
    EXPECT_THROW(CollatzFamilie(auftrag(A::Fakultaet, 1, O::Mal, -2)), Laufzeitfehler);
    EXPECT_THROW(CollatzFamilie(auftrag(A::Formel, 1)), Laufzeitfehler);
    // A formula without a value at one n gives that row the message and goes on.
    a = auftrag(A::Formel, 4);
    a.formel = "10/(n-5)";
    CollatzFamilie fo(a);
    EXPECT_EQ(fo.Zaehlen().stand, FamilienStand::Gezaehlt);
    fo.Weiter();
    EXPECT_EQ(fo.Zaehlen().stand, FamilienStand::Fehler);
    EXPECT_NE(FamilienZeileText(fo.Zaehlen()).find("10/(5-5) ; "), std::string::npos);
    fo.Weiter();
    EXPECT_EQ(FamilienZeileText(fo.Zaehlen()), "10/(6-5) ; " + gmpWalk(Mpz(10)));
    // Step 0: n stands still and the same row comes again.
    a = auftrag(A::Fakultaet, 7);
    a.schritt = 0;
    CollatzFamilie still(a);
    still.Weiter();
    EXPECT_EQ(FamilienZeileText(still.Zaehlen()), "7! ; " + gmpWalk(Mpz(5040)));
    // A stop inside one large member marks its row.
    Abbruch = true;
    const FamilienZeile halb = CollatzFamilie(auftrag(A::Zweierpotenz, 200000, O::Minus, 1)).Zaehlen();
    Abbruch = false;
    EXPECT_EQ(halb.stand, FamilienStand::Abgebrochen);
    EXPECT_NE(FamilienZeileText(halb).find(Text(2081)), std::string::npos);
}

TEST_F(CollatzFamilie_, CsvMitStellenBitsUndSchrittenJeBit) {
    // 10! = 3628800: 7 digits, 22 bits, 66 steps.
    EXPECT_EQ(FamilienZeileCsv(CollatzFamilie(auftrag(FamilienArt::Fakultaet, 10)).Zaehlen()),
              "10!;7;22;66;17;3.0000");
    // Digits at the powers of ten, where the quick estimate is one too many.
    for (unsigned long e : {1ul, 9ul, 10ul, 99ul, 1000ul}) {
        Mpz p;
        mpz_ui_pow_ui(p, 10, e);
        EXPECT_EQ(HypStellen(MpzZuHyp(p)), int64_t(e) + 1);
        mpz_sub_ui(p, p, 1);
        EXPECT_EQ(HypStellen(MpzZuHyp(p)), int64_t(e));
    }
}

}  // namespace
}  // namespace sw::test
