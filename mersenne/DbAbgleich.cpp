// DbAbgleich: merging another database folder into ours (see DbAbgleich.h).
#include "mersenne/DbAbgleich.h"

#include <sqlite3.h>

#include <algorithm>
#include <climits>
#include <filesystem>
#include <memory>

#include "frame/Laufzeitfehler.h"
#include "frame/Pfade.h"
#include "frame/Texte.h"
#include "mersenne/DbAnweisung.h"
#include "mersenne/DbImport.h"
#include "mersenne/basDB.h"
#include "sieve/RasterTabellen.h"

namespace sw {

namespace {

namespace fs = std::filesystem;

// A stored limit as a plain one; a short form beyond 32 bits is no limit anyone reached.
int64_t grenze(int32_t gespeichert) {
    const int64_t g = TeilerPotWert(gespeichert);
    return g > INT32_MAX ? 0 : g;
}

void zeileAbgleichen(int32_t p, const PrimZeile& fremd, AbgleichBericht& b) {
    const PrimZeile alt = PrimZeileLesen(p);
    PrimZeile z = alt;
    std::vector<std::string> neu;
    if (fremd.teiler != "0" && !fremd.teiler.empty()) {
        size_t a = 0;
        while (a <= fremd.teiler.size()) {
            const size_t e = std::min(fremd.teiler.find('x', a), fremd.teiler.size());
            const std::string q = fremd.teiler.substr(a, e - a);
            if (q.empty() || TeilerInListe(z.teiler, q)) {
                // known already
            } else if (!TeiltMersenne(q, p)) {
                ++b.falscheTeiler;  // a damaged or mistaken entry must not spread
            } else {
                z.teiler = z.teiler == "0" ? q : z.teiler + "x" + q;
                neu.push_back(q);
            }
            a = e + 1;
        }
    }
    const bool hoeher = grenze(fremd.teilerPot) > grenze(alt.teilerPot);
    if (hoeher) z.teilerPot = int32_t(grenze(fremd.teilerPot));
    z.mersenne = z.teiler != "0" ? 2 : std::max(alt.mersenne, fremd.mersenne);
    if (neu.empty() && !hoeher && z.mersenne == alt.mersenne && alt.vorhanden) return;
    if (z.teiler.find('x') == std::string::npos && z.teiler != "0") {
        z.faktorS = FaktorK(z.teiler, p);
    } else if (z.faktorS.empty()) {
        z.faktorS = fremd.faktorS;
    }
    z.zeitstempel = std::max(alt.zeitstempel, fremd.zeitstempel);
    PrimZeileSchreiben(p, z);

    b.neueZeilen += !alt.vorhanden;
    b.neueTeiler += int64_t(neu.size());
    b.hoehereGrenzen += hoeher && alt.vorhanden;
    b.neuerStatus += z.mersenne != alt.mersenne;
    if (b.aenderungen.size() >= AbgleichZeilenHoechstens) return;
    std::string zeile = std::to_string(p) + ":";
    for (const std::string& q : neu) zeile += " " + TextP1(1521, q);
    if (hoeher) zeile += " " + TextP1P2(1522, std::to_string(grenze(alt.teilerPot)), std::to_string(z.teilerPot));
    if (z.mersenne != alt.mersenne) zeile += " " + TextP1P2(1523, std::to_string(alt.mersenne), std::to_string(z.mersenne));
    b.aenderungen.push_back(zeile);
}

}  // namespace

AbgleichBericht DbZusammenfuehren(const std::string& fremderOrdner) {
    // An empty field would name the working folder, which is the own database folder.
    if (fremderOrdner.empty()) throw Laufzeitfehler(DbFehlerNummer, Text(1529));
    const std::string ordner = MitSchraegstrich(fremderOrdner);
    std::error_code fehler;
    if (fs::equivalent(ordner, DbOrdner(), fehler)) throw Laufzeitfehler(DbFehlerNummer, TextP1(1520, ordner));
    std::vector<int32_t> segmente;
    std::vector<DbLeseVerbindung> verbindungen;
    for (int32_t s = 0; s <= DbSegment(GrenzeLong); ++s) {
        const std::string pfad = ordner + DbDateiName(s);
        if (!fs::exists(pfad)) continue;
        verbindungen.push_back(DbLesendOeffnen(pfad));
        segmente.push_back(s);
    }
    if (segmente.empty()) throw Laufzeitfehler(DbFehlerNummer, TextP1(1524, ordner));

    AbgleichBericht b;
    DbTransaktion t;
    for (size_t i = 0; i < segmente.size(); ++i) {
        const std::string pfad = ordner + DbDateiName(segmente[i]);
        DbAnweisung zeilen(verbindungen[i].get(), pfad,
                           "SELECT Primzahl, Mersenne, Teiler, TeilerPot, FaktorS, TimeStamp FROM t_Prim ORDER BY Primzahl");
        ++b.dateien;
        while (zeilen.Schritt()) {
            const int64_t p = zeilen.Zahl(0);
            // A row outside its segment belongs to no file of ours; it cannot be a real one.
            if (p < 2 || p > GrenzeLong || DbSegment(p) != segmente[i]) continue;
            PrimZeile fremd;
            fremd.vorhanden = true;
            fremd.mersenne = int32_t(zeilen.Zahl(1));
            fremd.teiler = zeilen.IstNull(2) ? "0" : zeilen.Textwert(2);
            fremd.teilerPot = int32_t(zeilen.Zahl(3));
            fremd.faktorS = zeilen.Textwert(4);
            fremd.zeitstempel = zeilen.Textwert(5);
            ++b.zeilen;
            zeileAbgleichen(int32_t(p), fremd, b);
            t.FestschreibenNach();
        }
    }
    t.Festschreiben();
    return b;
}

std::vector<std::string> AbgleichText(const AbgleichBericht& b) {
    std::vector<std::string> text = {
        TextP1P2(1525, std::to_string(b.dateien), std::to_string(b.zeilen)),
        TextP1P2(1526, std::to_string(b.neueZeilen), std::to_string(b.neueTeiler)),
        TextP1P2(1527, std::to_string(b.hoehereGrenzen), std::to_string(b.neuerStatus)),
    };
    if (b.falscheTeiler > 0) text.push_back(TextP1(1528, b.falscheTeiler));
    text.insert(text.end(), b.aenderungen.begin(), b.aenderungen.end());
    return text;
}

}  // namespace sw
