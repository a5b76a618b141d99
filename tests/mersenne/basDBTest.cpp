// The Mersenne database: rows and segments, the stored values (short-form limits, k of a
// divisor against GMP, time stamps), the counts against a plain loop over the same rows, the
// found-divisor road, transactions, and every file the program must refuse without writing.
#include <gmp.h>

#include <filesystem>
#include <fstream>
#include <algorithm>
#include <map>
#include <random>
#include <cstring>
#include <unistd.h>

#include "DbTestBasis.h"
#include "frame/Texte.h"

namespace sw::test {
namespace {

namespace fs = std::filesystem;

std::string Dateiinhalt(const std::string& pfad) {
    std::ifstream f(pfad, std::ios::binary);
    return {std::istreambuf_iterator<char>(f), {}};
}

class basDB_ : public DbTest {};
// What a row says and what the counts give must not depend on where the rows are kept.
class basDBSpeicher_ : public DbSpeicherTest {};
SW_AUF_BEIDEN_SPEICHERN(basDBSpeicher_);

TEST_P(basDBSpeicher_, FehlendeZeileLiestNullUndSchreibtNichts) {
    ASSERT_TRUE(DbOeffnen(0));
    int32_t m = 7, pot = 7;
    std::string t = "x";
    EXPECT_FALSE(PrimLesen(1000003, m, t, pot));  // segment 0 is open already
    EXPECT_EQ(m, 0);
    EXPECT_EQ(t, "0");
    EXPECT_EQ(pot, 0);
    ZaehleAlle();
    EXPECT_EQ(DbAnzahlGesamt, 0);
    // Fields left empty by another program read as "0" and 0.
    Aussen("INSERT INTO t_Prim (Primzahl, Mersenne) VALUES (11, 2)");
    PrimLesen(11, m, t, pot);
    EXPECT_EQ(m, 2);
    EXPECT_EQ(t, "0");
    EXPECT_EQ(pot, 0);
}

TEST_F(basDB_, SegmentNachExponentUndWechselGemeldet) {
    ASSERT_TRUE(DbOeffnen(0));
    EXPECT_FALSE(PrimSchreiben(199999999, 0, "0", 1000));
    EXPECT_TRUE(PrimSchreiben(200000033, 0, "0", 1000));
    EXPECT_EQ(DbSegmentAktuell, 1);
    EXPECT_FALSE(PrimSchreiben(399999959, 0, "0", 2000));
    EXPECT_TRUE(PrimSchreiben(1999999973, 0, "0", 3000));
    EXPECT_EQ(DbSegmentAktuell, 9);
    int32_t m, pot;
    std::string t;
    EXPECT_TRUE(PrimLesen(200000033, m, t, pot));
    EXPECT_EQ(pot, 1000);
    DbSchliessen();
    EXPECT_EQ(DbSegmentAktuell, DbKeinSegment);
    EXPECT_FALSE(DbOffen);
    // Each row stands in the file of its own segment and nowhere else.
    EXPECT_EQ(Fremdzugriff(Ordner() + "Prim.db").Wert("SELECT group_concat(Primzahl) FROM t_Prim"), "199999999");
    EXPECT_EQ(Fremdzugriff(Ordner() + "Prim1.db").Wert("SELECT group_concat(Primzahl) FROM t_Prim"),
              "200000033,399999959");
    EXPECT_EQ(Fremdzugriff(Ordner() + "Prim9.db").Wert("SELECT Count(*) FROM t_Prim"), "1");
    EXPECT_EQ(DbDateiName(DbSegment(2000000000)), "Prim10.db");
    EXPECT_EQ(DbDateiName(DbSegment(200000000)), "Prim1.db");
}

TEST_F(basDB_, KurzformDerGrenze) {
    EXPECT_EQ(TeilerPotDekodieren(9), 9);
    EXPECT_EQ(TeilerPotDekodieren(10), 0);
    EXPECT_EQ(TeilerPotDekodieren(23), 300);
    EXPECT_EQ(TeilerPotDekodieren(62), 2000000);
    EXPECT_EQ(TeilerPotDekodieren(92), 2000000000);
    EXPECT_EQ(TeilerPotDekodieren(100), 100);
    EXPECT_EQ(TeilerPotDekodieren(0), 0);
    EXPECT_EQ(TeilerPotWert(99), 9000000000LL);
    for (int32_t v : {93, 99}) {
        try {
            TeilerPotDekodieren(v);
            ADD_FAILURE() << v;
        } catch (const Laufzeitfehler& e) {
            EXPECT_EQ(e.Nummer(), FehlerUeberlauf);
            EXPECT_NE(e.Beschreibung().find(std::to_string(TeilerPotWert(v))), std::string::npos);
        }
    }
    // The two directions agree on every code whose mantissa is not 0.
    for (int32_t v = 11; v <= 92; ++v) {
        if (v % 10 == 0) continue;
        EXPECT_EQ(TeilerPotKodieren(std::to_string(TeilerPotDekodieren(v))), v) << v;
    }
    EXPECT_EQ(TeilerPotKodieren("349"), 23);
    EXPECT_EQ(GeworfeneNummer([] { TeilerPotKodieren("3a"); }), FehlerTypenUnvertraeglich);
}

// k = (q - 1) / 2 / p against GMP, on both sides of the change from Decimal to Hyp arithmetic.
TEST_F(basDB_, FaktorKWieGmp) {
    std::mt19937_64 zufall(14);
    mpz_t q, k;
    mpz_inits(q, k, nullptr);
    for (int stellen = 5; stellen <= 60; ++stellen) {
        const int32_t p = int32_t(zufall() % 1999999999) + 1;
        std::string kText = std::to_string(1 + zufall() % 9);
        while (int(kText.size()) < stellen) kText += char('0' + zufall() % 10);
        mpz_set_str(k, kText.c_str(), 10);
        mpz_mul_ui(q, k, 2 * uint64_t(p));
        mpz_add_ui(q, q, 1);
        char* qText = mpz_get_str(nullptr, 10, q);
        EXPECT_EQ(FaktorK(qText, p), kText) << qText << " p=" << p;
        void (*frei)(void*, size_t);
        mp_get_memory_functions(nullptr, nullptr, &frei);
        frei(qText, std::strlen(qText) + 1);
    }
    mpz_clears(q, k, nullptr);
}

TEST_P(basDBSpeicher_, FaktorSNurBeiEinemTeiler) {
    ASSERT_TRUE(DbOeffnen(0));
    PrimSchreiben(11, 2, "23", 100);  // 23 = 2*1*11 + 1
    EXPECT_EQ(PrimZeileLesen(11).faktorS, "1");
    PrimSchreiben(11, 2, "23x89", 100);  // a list leaves the k of the first divisor
    EXPECT_EQ(PrimZeileLesen(11).faktorS, "1");
    PrimSchreiben(13, 0, "0", 100);
    EXPECT_EQ(PrimZeileLesen(13).faktorS, "");
    PrimSchreiben(29, 2, "233", 100);  // 233 = 2*4*29 + 1
    PrimSchreiben(29, 0, "0", 100);
    EXPECT_EQ(PrimZeileLesen(29).faktorS, "4");
}

TEST_P(basDBSpeicher_, ZeitstempelNurBeiNeuerGrenze) {
    ASSERT_TRUE(DbOeffnen(0));
    PrimSchreiben(101, 0, "0", 23);  // stored in short form: 300
    EXPECT_FALSE(PrimZeileLesen(101).zeitstempel.empty());
    Aussen("UPDATE t_Prim SET TimeStamp = '2001-02-03 04:05:06'");
    PrimSchreiben(101, 0, "0", 300);  // the same limit in plain form: the stamp stays
    EXPECT_EQ(PrimZeileLesen(101).zeitstempel, "2001-02-03 04:05:06");
    EXPECT_EQ(PrimZeileLesen(101).teilerPot, 300);
    PrimSchreiben(101, 0, "0", 301);
    EXPECT_NE(PrimZeileLesen(101).zeitstempel, "2001-02-03 04:05:06");
    // Imported rows always take a made-up moment of 2008, new and old alike.
    for (int i = 0; i < (Server() ? 40 : 200); ++i) {
        PrimSchreibenImport(101, 2, "607", 301);
        const std::string s = PrimZeileLesen(101).zeitstempel;
        ASSERT_EQ(s.size(), 19u);
        EXPECT_EQ(s.substr(0, 5), "2008-");
        const int monat = std::stoi(s.substr(5, 2)), tag = std::stoi(s.substr(8, 2));
        EXPECT_TRUE(monat >= 1 && monat <= 12 && tag >= 1 && tag <= 28) << s;
    }
}

// The counts against a plain loop over the same random rows, across a segment border.
TEST_P(basDBSpeicher_, ZaehlungenWieEineSchleife) {
    std::mt19937 zufall(6);
    std::map<int32_t, std::pair<int32_t, std::string>> zeilen;  // p -> status, FaktorS
    std::vector<int32_t> exponenten;
    // A server answers each row in a round trip: fewer rows there keep the test quick.
    for (int i = 0; i < (Server() ? 400 : 3000); ++i) exponenten.push_back(199990001 + 2 * int32_t(zufall() % 10000));
    std::sort(exponenten.begin(), exponenten.end());  // one change of file, not hundreds
    {
        DbTransaktion t;
        for (int32_t p : exponenten) {
            const int32_t m = int32_t(zufall() % 3);
            const int64_t k = 1 + zufall() % 500;
            const std::string q = m == 2 ? std::to_string(2 * k * p + 1) : "0";
            PrimSchreiben(p, m, q, 1000);
            zeilen[p] = {m, m == 2 ? std::to_string(k) : zeilen[p].second};
        }
        t.Festschreiben();
    }
    const int32_t lo = 199995000, hi = 199999999;
    int64_t alle = 0, mit = 0, ungleich = 0, geteilt = 0, intervall = 0;
    int64_t klasse[4] = {}, klasseBis100 = 0;
    for (const auto& [p, z] : zeilen) {
        if (p >= lo && p <= hi) ++alle, mit += z.first > 0;
        if (p > lo && p < hi) ungleich += z.first != 0, geteilt += z.first == 2;
        if (p >= 199990000 && p <= 199998001 && z.first > 0) ++intervall;
        if (p >= lo && p <= hi && z.first == 2) {
            ++klasse[std::stoll(z.second) % 4];
            klasseBis100 += std::stoll(z.second) <= 100;
        }
    }
    ASSERT_TRUE(DbOeffnen(0));
    ZaehleBereich(lo, hi);
    EXPECT_EQ(DbAnzahlGesamt, alle);
    EXPECT_EQ(DbAnzahlMitStatus, mit);
    EXPECT_EQ(ZaehleWo({DbStatusWahl::NichtNull, lo, hi}), ungleich);
    EXPECT_EQ(ZaehleWo({DbStatusWahl::Geteilt, lo, hi}), geteilt);
    EXPECT_EQ(ZaehleIntervall(199998001, 10000), intervall);
    int64_t primzahlen, treffer;
    for (int modus : {0, 1, 3}) {
        ZaehleFaktorklasse(lo, hi, std::to_string(modus), primzahlen, treffer);
        EXPECT_EQ(treffer, klasse[modus]) << modus;
    }
    ZaehleFaktorklasse(lo, hi, "2", primzahlen, treffer);
    EXPECT_EQ(treffer, klasse[0] + klasse[1] + klasse[2] + klasse[3]);
    ZaehleFaktorklasse(lo, hi, "2100", primzahlen, treffer);
    EXPECT_EQ(treffer, klasseBis100);
}

struct Liste : TeilerFenster {
    std::vector<std::string> eintraege;
    std::string status;
    bool db = true;
    int32_t ListeAnzahl() const override { return int32_t(eintraege.size()); }
    void ListeLeeren() override { eintraege.clear(); }
    void ListeHinzufuegen(const std::string& e) override { eintraege.push_back(e); }
    void StatusSetzen(const std::string& t) override { status = t; }
    bool DbEintragen() const override { return db; }
};

// Divisors of 2^p - 1 for p = 1,000,003 are long lists when many are entered: each stays whole.
TEST_P(basDBSpeicher_, TeilerEintragenBehaeltJedenTeiler) {
    ASSERT_TRUE(DbOeffnen(0));
    Liste f;
    const int32_t p = 1000003;
    PrimSchreiben(p, 0, "0", 5000);
    std::string erwartet;
    for (int64_t k = 1; k <= 12; ++k) {  // not true divisors: the list does not judge them
        const std::string q = std::to_string(2 * k * p + 1) + "00000000000";
        EXPECT_TRUE(TeilerEintragen(f, q, p));
        erwartet += (erwartet.empty() ? "" : "x") + q;
    }
    EXPECT_GT(erwartet.size(), 200u);
    EXPECT_FALSE(TeilerEintragen(f, std::to_string(2 * 3 * int64_t(p) + 1) + "00000000000", p));
    const PrimZeile z = PrimZeileLesen(p);
    EXPECT_EQ(z.teiler, erwartet);
    EXPECT_EQ(z.mersenne, 2);
    EXPECT_EQ(z.teilerPot, 5000);
    EXPECT_EQ(f.NewCount, 1);
    EXPECT_EQ(f.NewFaktor, 11);
    EXPECT_EQ(f.status, TextP1P2(166, "1", "11"));
    // A divisor that is a prefix of one in the list is new all the same.
    EXPECT_TRUE(TeilerEintragen(f, "2000007", p));
    // The report: k in the entry, the list cleared beyond its bound, no entry for a Mersenne prime.
    f.eintraege.assign(TeilerListeHoechstens + 1, "");
    TeilerMelden(f, "167", 83);  // 167 = 2*1*83 + 1
    ASSERT_EQ(f.eintraege.size(), 2u);
    EXPECT_EQ(f.eintraege[0], "167" + TextP1(167, 83) + " \tk = 1");
    EXPECT_EQ(PrimZeileLesen(83).teiler, "167");
    TeilerMelden(f, "128", 127);
    EXPECT_FALSE(PrimZeileLesen(127).vorhanden);
    EXPECT_EQ(f.Faktor, 2);
}

TEST_P(basDBSpeicher_, TransaktionFestschreibenUndZurueckrollen) {
    ASSERT_TRUE(DbOeffnen(0));
    const std::string zeilen = "SELECT Count(*) FROM t_Prim WHERE Primzahl < 1000";
    {
        DbTransaktion t;
        PrimSchreiben(3, 1, "0", 10);
        EXPECT_EQ(Aussen(zeilen), "0");  // not yet committed
        t.Festschreiben();
        EXPECT_EQ(Aussen(zeilen), "1");
        PrimSchreiben(200000033, 0, "0", 10);  // the change of segment commits the first one
        PrimSchreiben(5, 1, "0", 10);
    }
    EXPECT_EQ(Aussen("SELECT Count(*) FROM t_Prim WHERE Primzahl IN (3, 5)"), "2");
    try {
        DbTransaktion t;
        PrimSchreiben(7, 1, "0", 10);
        throw Laufzeitfehler(FehlerUeberlauf);
    } catch (const Laufzeitfehler&) {
    }
    EXPECT_FALSE(PrimZeileLesen(7).vorhanden);
    EXPECT_EQ(Aussen(zeilen), "2");
}

// Files the program cannot use are refused with a message naming them and stay as they were.
TEST_F(basDB_, UnbrauchbareDateienBleibenUnberuehrt) {
    const std::string pfad = DbDateiPfad(0);
    const auto verweigert = [&](int key) {
        EXPECT_FALSE(DbOeffnen(0));
        EXPECT_FALSE(DbOffen);
        EXPECT_EQ(DbSegmentAktuell, DbKeinSegment);
        EXPECT_NE(DbFehlerText().find(pfad), std::string::npos) << DbFehlerText();
        const std::string vorne = TextP1(key, pfad);
        const size_t bis = vorne.find(pfad) + pfad.size() + 6;
        EXPECT_EQ(DbFehlerText().substr(0, bis), vorne.substr(0, bis));
    };
    std::ofstream(pfad) << std::string(5000, 'M');
    verweigert(1503);
    EXPECT_EQ(Dateiinhalt(pfad), std::string(5000, 'M'));
    fs::remove(pfad);

    Fremdzugriff(pfad).Ausfuehren("CREATE TABLE Kunden (Name TEXT)");
    const std::string fremd = Dateiinhalt(pfad);
    verweigert(1502);
    EXPECT_EQ(Dateiinhalt(pfad), fremd);
    fs::remove(pfad);
    Fremdzugriff(pfad).Ausfuehren("CREATE TABLE t_Prim (Primzahl INTEGER, Mersenne INTEGER); CREATE TABLE t_LastFaktor (x)");
    verweigert(1502);
    fs::remove(pfad);

    ASSERT_TRUE(DbOeffnen(0));
    PrimSchreiben(3, 1, "0", 10);
    DbSchliessen();
    fs::permissions(pfad, fs::perms::owner_write, fs::perm_options::remove);
    if (access(pfad.c_str(), W_OK) != 0) verweigert(1501);  // root may write anyway
    fs::permissions(pfad, fs::perms::owner_write, fs::perm_options::add);

    // Cut short: the file is recognised as damaged at the latest when its rows are read.
    {
        ASSERT_TRUE(DbOeffnen(0));
        DbTransaktion t;
        for (int32_t p = 11; p < 40000; p += 2) PrimSchreiben(p, 0, "0", 1000 + p);
        t.Festschreiben();
        DbSchliessen();
    }
    Fremdzugriff(pfad).Ausfuehren("PRAGMA wal_checkpoint(TRUNCATE)");
    fs::resize_file(pfad, fs::file_size(pfad) / 2);
    fs::remove(pfad + "-wal");
    fs::remove(pfad + "-shm");
    if (DbOeffnen(0)) {
        EXPECT_EQ(GeworfeneNummer([] { ZaehleAlle(); }), DbFehlerNummer);
    } else {
        EXPECT_FALSE(DbFehlerText().empty());
    }
}

// A second writer holds the file: the write waits its time, then fails with a message and
// leaves nothing behind; once the writer is done it goes through.
TEST_F(basDB_, GesperrteDateiUndVollerDatentraeger) {
    ASSERT_TRUE(DbOeffnen(0));
    PrimSchreiben(3, 1, "0", 10);
    DbWartezeitSetzen(50);
    Fremdzugriff anderer(DbDateiPfad(0));
    ASSERT_EQ(anderer.Ausfuehren("BEGIN IMMEDIATE; INSERT INTO t_Prim (Primzahl, Mersenne) VALUES (5, 1)"), SQLITE_OK);
    try {
        PrimSchreiben(7, 1, "0", 10);
        ADD_FAILURE();
    } catch (const Laufzeitfehler& e) {
        EXPECT_EQ(e.Nummer(), DbFehlerNummer);
        EXPECT_EQ(e.Beschreibung().substr(0, 12), Text(1500).substr(0, 12));
    }
    anderer.Ausfuehren("COMMIT");
    EXPECT_FALSE(PrimZeileLesen(7).vorhanden);
    PrimSchreiben(7, 1, "0", 10);
    EXPECT_EQ(anderer.Wert("SELECT group_concat(Primzahl) FROM t_Prim"), "3,5,7");

    // A full disk, made by a page limit: the batch that does not fit is rolled back whole.
    const std::string seiten = anderer.Wert("PRAGMA page_count");
    sqlite3_exec(DbVerbindung(), ("PRAGMA max_page_count = " + seiten).c_str(), nullptr, nullptr, nullptr);
    try {
        DbTransaktion t;
        for (int32_t p = 11; p < 100000; p += 2) PrimSchreiben(p, 2, std::string(90, '7'), 10);
        t.Festschreiben();
        ADD_FAILURE();
    } catch (const Laufzeitfehler& e) {
        EXPECT_EQ(e.Beschreibung().substr(0, 12), Text(1504).substr(0, 12)) << e.Beschreibung();
    }
    EXPECT_EQ(anderer.Wert("SELECT group_concat(Primzahl) FROM t_Prim"), "3,5,7");
}

}  // namespace
}  // namespace sw::test
