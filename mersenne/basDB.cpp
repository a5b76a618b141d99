// basDB: the connection, the rows and the counts of the Mersenne database (see basDB.h).
#include "mersenne/basDB.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <ctime>
#include <exception>
#include <random>

#include "arith/HypText.h"
#include "frame/Decimal.h"
#include "frame/Laufzeitfehler.h"
#include "frame/Texte.h"
#include "frame/basZentral.h"
#include "db/PgVerbindung.h"
#include "mersenne/MersenneSpeicher.h"
#include "mersenne/SqliteSpeicher.h"
#include "sieve/RasterTabellen.h"
#include "sieve/basSiebwerk.h"

namespace sw {

int32_t DbSegmentAktuell = DbKeinSegment;
bool DbOffen = false;
int32_t DbAnzahlGesamt = 0;
int32_t DbAnzahlMitStatus = 0;

namespace {

std::string ordner_;                // "" = ProgrammPfad
std::unique_ptr<MersenneSpeicher> speicher_ = SpeicherFuer("");
std::string fehlerText_;
int32_t wartezeit_ = 3000;          // a GUI may wait a few seconds for a writer, not longer

int sammelTiefe_ = 0;               // active DbTransaktion objects
bool transaktionOffen_ = false;     // a transaction was begun on the open segment
auto letzterCommit_ = std::chrono::steady_clock::now();

void festschreibenOffen() {
    if (!transaktionOffen_) return;
    transaktionOffen_ = false;
    speicher_->Festschreiben();
    letzterCommit_ = std::chrono::steady_clock::now();
}

void segmentSicherstellen(int32_t p, bool& gewechselt) {
    const int32_t s = DbSegment(p);
    gewechselt = false;
    if (s != DbSegmentAktuell || !speicher_->Offen()) {
        DbOeffnenPflicht(s);
        gewechselt = true;
    }
}

std::string jetzt() {
    const std::time_t t = std::time(nullptr);
    std::tm tm{};
    localtime_r(&t, &tm);
    char puffer[24];
    std::strftime(puffer, sizeof puffer, "%Y-%m-%d %H:%M:%S", &tm);
    return puffer;
}

// Runs one write: inside the collecting transaction when there is one, else as a transaction
// of its own, so that the read and the write of a row are never torn apart.
template <class F>
void schreibRahmen(F&& f) {
    if (sammelTiefe_ > 0) {
        if (!transaktionOffen_) {
            speicher_->Beginnen();
            transaktionOffen_ = true;
        }
        f();
        return;
    }
    speicher_->Beginnen();
    transaktionOffen_ = true;
    try {
        f();
    } catch (...) {
        transaktionOffen_ = false;
        speicher_->Verwerfen();
        throw;
    }
    festschreibenOffen();
}

// Stores z as p's row; the caller runs it inside schreibRahmen.
void zeileAblegen(int32_t p, const PrimZeile& z, bool neu) {
    speicher_->Ablegen(p, z);
    if (neu) ++DbAnzahlGesamt;
}

bool schreiben(int32_t p, int32_t mersenne, const std::string& teiler, int32_t teilerPot, bool import) {
    bool gewechselt;
    segmentSicherstellen(p, gewechselt);
    schreibRahmen([&] {
        const PrimZeile alt = speicher_->Lesen(p);
        PrimZeile z = alt;
        z.mersenne = mersenne;
        z.teiler = teiler;
        z.teilerPot = teilerPot;
        if (teiler != "0" && teiler.find('x') == std::string::npos) z.faktorS = FaktorK(teiler, p);
        if (import) {
            z.zeitstempel = ZufallsZeitstempel(2008);
        } else if (!alt.vorhanden || TeilerPotWert(alt.teilerPot) != teilerPot) {
            z.zeitstempel = jetzt();
        }
        zeileAblegen(p, z, !alt.vorhanden);
    });
    return gewechselt;
}

void offenPruefen() {
    if (!speicher_->Offen()) throw Laufzeitfehler(DbFehlerNummer, TextP1(1508, DbDateiPfad(0)));
}

int64_t zaehlen(int64_t ab, int64_t bis, DbStatusWahl status) {
    offenPruefen();
    return speicher_->Anzahl(ab, bis, status);
}

}  // namespace

// ---- folder and connection ----------------------------------------------------------------

void DbOrdnerSetzen(const std::string& ordner) {
    DbSchliessen();
    ordner_ = ordner.empty() || ordner.back() == '/' || IstPgUrl(ordner) ? ordner : ordner + "/";
    speicher_ = SpeicherFuer(ordner_);
    speicher_->WartezeitSetzen(wartezeit_);
}

std::string DbOrdner() { return speicher_->Ort(); }

const std::string& DbOrtEingabe() { return ordner_; }

bool DbAufServer() { return IstPgUrl(ordner_); }

MersenneSpeicher& DbSpeicher() { return *speicher_; }

std::string DbDateiName(int32_t segment) {
    return segment == 0 ? "Prim.db" : "Prim" + std::to_string(segment) + ".db";
}

std::string DbDateiPfad(int32_t segment) { return speicher_->SegmentOrt(segment); }

bool DbSegmentVorhanden(int32_t segment) { return speicher_->SegmentVorhanden(segment); }

bool DbOeffnen(int32_t segment) {
    try {
        DbOeffnenPflicht(segment);
        return true;
    } catch (const Laufzeitfehler& e) {
        fehlerText_ = e.Beschreibung();
        return false;
    }
}

void DbOeffnenPflicht(int32_t segment) {
    if (speicher_->Offen()) {
        festschreibenOffen();
        speicher_->Schliessen();
    }
    transaktionOffen_ = false;
    DbOffen = false;
    DbSegmentAktuell = DbKeinSegment;
    fehlerText_.clear();
    speicher_->Oeffnen(segment);
    DbSegmentAktuell = segment;
    DbOffen = true;
}

const std::string& DbFehlerText() { return fehlerText_; }

void DbSchliessen() {
    if (speicher_->Offen()) {
        try {
            festschreibenOffen();
        } catch (...) {
            speicher_->Schliessen();
            transaktionOffen_ = false;
            DbOffen = false;
            DbSegmentAktuell = DbKeinSegment;
            throw;
        }
    }
    speicher_->Schliessen();
    transaktionOffen_ = false;
    DbOffen = false;
    DbSegmentAktuell = DbKeinSegment;
}

sqlite3* DbVerbindung() {
    auto* sqlite = dynamic_cast<SqliteSpeicher*>(speicher_.get());
    return sqlite != nullptr ? sqlite->Verbindung() : nullptr;
}

void DbWartezeitSetzen(int32_t millisekunden) {
    wartezeit_ = millisekunden;
    speicher_->WartezeitSetzen(wartezeit_);
}

// ---- transactions ---------------------------------------------------------------------------

DbTransaktion::DbTransaktion() : aeussere_(sammelTiefe_ == 0), ausnahmen_(std::uncaught_exceptions()) {
    ++sammelTiefe_;
    if (aeussere_) letzterCommit_ = std::chrono::steady_clock::now();
}

DbTransaktion::~DbTransaktion() {
    --sammelTiefe_;
    if (!aeussere_ || !transaktionOffen_ || !speicher_->Offen()) return;
    if (std::uncaught_exceptions() > ausnahmen_) {
        transaktionOffen_ = false;
        speicher_->Verwerfen();
        return;
    }
    try {
        festschreibenOffen();
    } catch (const Laufzeitfehler&) {
        // A destructor cannot report; callers that must know call Festschreiben() first.
    }
}

void DbTransaktion::Festschreiben() { festschreibenOffen(); }

void DbTransaktion::FestschreibenNach(double sekunden) {
    const std::chrono::duration<double> vergangen = std::chrono::steady_clock::now() - letzterCommit_;
    if (vergangen.count() >= sekunden) festschreibenOffen();
}

// ---- rows -----------------------------------------------------------------------------------

PrimZeile PrimZeileLesen(int32_t p, bool* gewechselt) {
    bool g;
    segmentSicherstellen(p, g);
    if (gewechselt != nullptr) *gewechselt = g;
    return speicher_->Lesen(p);
}

bool PrimLesen(int32_t p, int32_t& mersenne, std::string& teiler, int32_t& teilerPot) {
    bool gewechselt;
    const PrimZeile z = PrimZeileLesen(p, &gewechselt);
    mersenne = z.mersenne;
    teiler = z.teiler;
    teilerPot = z.teilerPot;
    return gewechselt;
}

bool PrimSchreiben(int32_t p, int32_t mersenne, const std::string& teiler, int32_t teilerPot) {
    return schreiben(p, mersenne, teiler, teilerPot, false);
}

bool PrimSchreibenImport(int32_t p, int32_t mersenne, const std::string& teiler, int32_t teilerPot) {
    return schreiben(p, mersenne, teiler, teilerPot, true);
}

bool PrimZeileSchreiben(int32_t p, const PrimZeile& z) {
    bool gewechselt;
    segmentSicherstellen(p, gewechselt);
    schreibRahmen([&] { zeileAblegen(p, z, !speicher_->Lesen(p).vorhanden); });
    return gewechselt;
}

// ---- values ---------------------------------------------------------------------------------

int64_t TeilerPotWert(int32_t v) {
    if (v < 10 || v > 99) return v;
    int64_t grenze = v % 10;
    for (int e = v / 10; e > 0; --e) grenze *= 10;
    return grenze;
}

int32_t TeilerPotDekodieren(int32_t v) {
    const int64_t grenze = TeilerPotWert(v);
    if (grenze > INT32_MAX) throw Laufzeitfehler(FehlerUeberlauf, TextP1P2(1506, std::to_string(v), std::to_string(grenze)));
    return int32_t(grenze);
}

int32_t TeilerPotKodieren(const std::string& grenze) {
    if (grenze.empty() || grenze.find_first_not_of("0123456789") != std::string::npos || grenze.size() > 100) {
        throw Laufzeitfehler(FehlerTypenUnvertraeglich);
    }
    return int32_t(10 * (grenze.size() - 1) + (grenze[0] - '0'));
}

std::string FaktorK(const std::string& q, int32_t p) {
    if (p <= 0) throw Laufzeitfehler(FehlerDivisionDurchNull);
    if (q.size() < 28) return ((Decimal::ausText(q) - Decimal(1)) / Decimal(2) / Decimal(p)).Text();
    Hyp h = Ziffern2Hyp(q);
    aDecHyp(h);
    aDivHyp2(h);
    aDivHyp32(h, p);
    return Hyp2Text(h);
}

std::string ZufallsZeitstempel(int32_t jahr) {
    static std::mt19937_64 zufall{std::random_device{}()};
    std::uniform_real_distribution<double> r(0.0, 1.0);
    const int monat = int(r(zufall) * 12) + 1;
    const int tag = int(r(zufall) * 28) + 1;
    const int stunde = int(r(zufall) * 24);
    const int minute = int(r(zufall) * 60);
    const int sekunde = int(r(zufall) * 60);
    char puffer[40];
    std::snprintf(puffer, sizeof puffer, "%04d-%02d-%02d %02d:%02d:%02d", jahr, monat, tag, stunde, minute, sekunde);
    return puffer;
}

// ---- counts ---------------------------------------------------------------------------------

void ZaehleAlle() {
    DbAnzahlGesamt = 1;
    DbAnzahlGesamt = int32_t(zaehlen(INT64_MIN, INT64_MAX, DbStatusWahl::Alle));
    DbAnzahlMitStatus = int32_t(zaehlen(INT64_MIN, INT64_MAX, DbStatusWahl::MitStatus));
}

void ZaehleBereich(int64_t lo, int64_t hi) {
    DbAnzahlGesamt = 1;
    DbAnzahlGesamt = int32_t(zaehlen(lo, hi, DbStatusWahl::Alle));
    DbAnzahlMitStatus = int32_t(zaehlen(lo, hi, DbStatusWahl::MitStatus));
}

int32_t ZaehleIntervall(int32_t p, int32_t intervall) {
    if (intervall <= 0) throw Laufzeitfehler(FehlerDivisionDurchNull);
    bool gewechselt;
    segmentSicherstellen(p, gewechselt);
    const int64_t lo = int64_t(p / intervall) * intervall;
    return int32_t(zaehlen(lo, p, DbStatusWahl::MitStatus));
}

int64_t ZaehleWo(const DbBedingung& b) {
    // Open bounds as closed ones; the defaults INT64_MIN and INT64_MAX stay in range.
    if (b.ueber == INT64_MAX || b.unter == INT64_MIN) return 0;
    return zaehlen(b.ueber + 1, b.unter - 1, b.status);
}

void ZaehleFaktorklasse(int32_t von, int32_t bis, const std::string& auswahl, int64_t& anzahlPrim, int64_t& treffer) {
    if (auswahl.empty() || auswahl[0] < '0' || auswahl[0] > '9') throw Laufzeitfehler(FehlerTypenUnvertraeglich);
    const int modus = auswahl[0] - '0';
    const std::string rest = auswahl.substr(1);
    const int64_t l = rest.empty() ? 0 : Decimal::ausText(rest).Wert();
    anzahlPrim = PrimAnzahl(Decimal(von), Decimal(bis)).Wert();
    treffer = 0;
    for (int64_t s = von / MersenneDbSegment; s * MersenneDbSegment < bis; ++s) {
        if (s != DbSegmentAktuell || !speicher_->Offen()) DbOeffnenPflicht(int32_t(s));
        if (modus == 2 && l == 0) {
            treffer += zaehlen(von, bis, DbStatusWahl::Geteilt);
            continue;
        }
        // The walk reads committed rows only: what this job wrote must be committed first.
        festschreibenOffen();
        const int64_t ab = std::max<int64_t>(von, s * MersenneDbSegment);
        const int64_t bisHier = std::min<int64_t>(bis, (s + 1) * MersenneDbSegment - 1);
        speicher_->Durchlaufen(ab, bisHier, DbStatusWahl::Geteilt, true, [&](int32_t, const PrimZeile& z) {
            // A row without k has none to compare with the bound (NULL in the old query).
            if (l != 0 && (z.faktorS.empty() || std::strtod(z.faktorS.c_str(), nullptr) > double(l))) return;
            if (modus == 2) {
                ++treffer;
                return;
            }
            // k mod 4 is decided by its last two digits, as 100 is a multiple of 4.
            const std::string& k = z.faktorS;
            int letzte = 0;
            for (size_t i = k.size() >= 2 ? k.size() - 2 : 0; i < k.size(); ++i) {
                if (k[i] < '0' || k[i] > '9') break;
                letzte = letzte * 10 + (k[i] - '0');
            }
            if (letzte % 4 == modus) ++treffer;
        });
    }
}

// ---- found divisors -------------------------------------------------------------------------

bool TeilerInListe(const std::string& liste, const std::string& q) {
    size_t anfang = 0;
    while (anfang <= liste.size()) {
        const size_t ende = std::min(liste.find('x', anfang), liste.size());
        if (liste.compare(anfang, ende - anfang, q) == 0) return true;
        anfang = ende + 1;
    }
    return false;
}

bool TeilerEintragen(TeilerFenster& fenster, const std::string& q, int32_t e) {
    int32_t mersenne, pot;
    std::string teiler;
    PrimLesen(e, mersenne, teiler, pot);
    if (TeilerInListe(teiler, q)) return false;
    // The whole list is kept: a divisor cut off at some length would be counted but lost.
    if (mersenne != 0 && teiler != "0") {
        ++fenster.NewFaktor;
        teiler += "x" + q;
    } else {
        ++fenster.NewCount;
        teiler = q;
    }
    PrimSchreiben(e, 2, teiler, pot);
    fenster.ListeHinzufuegen(TextP1P2(165, q, std::to_string(e)));
    fenster.StatusSetzen(TextP1P2(166, std::to_string(fenster.NewCount), std::to_string(fenster.NewFaktor)));
    return true;
}

void TeilerMelden(TeilerFenster& fenster, const std::string& q, int32_t e) {
    const std::string k = FaktorK(q, e);
    ++fenster.Faktor;
    fenster.FortschrittSetzen(std::to_string(fenster.Faktor));
    if (fenster.ListeAnzahl() > TeilerListeHoechstens) fenster.ListeLeeren();
    fenster.ListeHinzufuegen(q + TextP1(167, e) + " \tk = " + k);
    if (fenster.DbEintragen() && aIsInMers(e) == 0) TeilerEintragen(fenster, q, e);
}

}  // namespace sw
