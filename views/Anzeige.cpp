#include "views/Anzeige.h"

#include <cmath>
#include <fstream>
#include <sstream>

#include "frame/Meldungen.h"
#include "frame/Oberflaeche.h"
#include "frame/StoppUhr.h"
#include "arith/HypText.h"
#include "frame/Texte.h"
#include "frame/Zahlformat.h"
#include "frame/basZentral.h"
#include "sieve/RasterTabellen.h"
#include "sieve/Zufall.h"
#include "sieve/basQuadrato.h"
#include "sieve/basSekundaer.h"
#include "sieve/basSiebwerk.h"
#include "views/RasterVorhanden.h"

namespace sw {

bool SucheAbbruch = false;

namespace {

constexpr int32_t KandidatRest[8] = {1, 7, 11, 13, 17, 19, 23, 29};
const Decimal Dreissig(30);

// The large search and the moving on yield this often (in primes walked).
constexpr uint64_t SuchTakt = 1 << 14;

// Resets the silent flag however the search leaves.
struct StummWaechter {
    ~StummWaechter() { AnzeigeStumm = 0; }
};

}  // namespace

void AnzeigeLogik::GeometrieSetzen(int32_t spalten, int32_t zeilen) {
    if (spalten < 1) spalten = 1;
    if (zeilen < 1) zeilen = 1;
    // Outside mode 0 a cell is a number coprime to 30: whole groups of 8 keep the columns
    // on the same residues from line to line.
    if (Modus != 0) spalten = (spalten + 7) / 8 * 8;
    if (spalten != spalten_ || zeilen != zeilen_) seiteGueltig_ = false;
    spalten_ = spalten;
    zeilen_ = zeilen;
}

Decimal AnzeigeLogik::ZeilenZahlen() const {
    return Modus == 0 ? Decimal(spalten_) : Decimal(spalten_ / 8 * 30);
}

Decimal AnzeigeLogik::SeitenZahlen() const { return ZeilenZahlen() * Decimal(zeilen_); }

// Outside mode 0 a page starts at the cell of a multiple of 30. In mode 6 the cells are
// distances from a start that is no such multiple: the page starts at the distance whose
// number is one, so that the columns keep their residues there too.
Decimal AnzeigeLogik::seitenBasis() const {
    if (Modus == 0) return Aktuell;
    const Decimal v(verschiebung());
    return (Aktuell + v) / Dreissig * Dreissig - v;
}

Decimal AnzeigeLogik::zelleZahl(const Decimal& basis, int32_t index) const {
    if (Modus == 0) return basis + Decimal(index);
    return basis + Decimal(int64_t(index / 8) * 30 + KandidatRest[index % 8]);
}

std::optional<Decimal> AnzeigeLogik::ZelleZahl(int32_t zeile, int32_t spalte) const {
    if (!BereichBereit || zeile < 0 || spalte < 0 || zeile >= zeilen_ || spalte >= spalten_) return std::nullopt;
    const Decimal n = zelleZahl(seitenBasis(), zeile * spalten_ + spalte);
    if (n < Anfang || n > Ende) return std::nullopt;
    return n;
}

// The large range sieves with the primes of the raster, and never draws by chance.
bool AnzeigeLogik::RasterDa() const {
    return (ZufallModus != 0 && Modus != 5 && Modus != 6) || PrimaerRasterVorhanden();
}

bool AnzeigeLogik::BereichHolen(const std::string& anfangText, const std::string& laengeText) {
    if (!RasterDa()) return false;
    StoppUhrStart("Anzeige " + BasisBeschriftung());
    fenster_.NavigationSchalten(false);
    if (Modus == 6) return holenTertiaer(anfangText, laengeText);
    Decimal anfang, laenge;
    try {
        anfang = TextZuDecimal(anfangText);
        laenge = TextZuDecimal(laengeText);
    } catch (const Laufzeitfehler& f) {
        MsgInfoText(f.Beschreibung());
        return false;
    }
    if (anfang.IstNegativ() || laenge.IstNegativ()) {
        MsgInfoText("Anfang und Länge dürfen nicht negativ sein.");
        return false;
    }
    if (Modus == 5 && anfang < Decimal(10000)) {
        MsgInfo(417);
        return false;
    }
    Decimal ende;
    try {
        ende = anfang + laenge;
    } catch (const Laufzeitfehler& f) {
        MsgInfoText(f.Beschreibung());
        return false;
    }
    if (ende > PrimaerGrenze && anfang == Decimal(1)) {
        if (laenge != PrimaerGrenze) {
            MsgInfo(516);
            return false;
        }
        ende = PrimaerGrenze;
    }
    Anfang = anfang;
    Laenge = laenge;
    Ende = ende;
    return holen();
}

bool AnzeigeLogik::holen() {
    BereichBereit = false;
    seiteGueltig_ = false;
    SekundaerFortschrittZiel* ziel = AnzeigeStumm ? nullptr : fenster_.Fortschritt();
    if (Modus == 5) {
        if (ziel) SekundaerFortschrittZeigen(*ziel);
        DoEvents();
        if (!SekundaerQuadrato(Anfang, Ende, ziel)) return false;
        meinStart_ = SekundaerStart;
        meinEnde_ = SekundaerEnde;
        Anzahl = SekundaerQuadratoZaehlen(Anfang, Ende);
        fenster_.FortschrittVerbergen();
        fenster_.AnzahlZeigen(ZahlFormat(static_cast<long long>(Anzahl)));
    } else {
        ImPrimaerbereich = false;
        if (Ende <= PrimaerGrenze && RasterBereit) {
            if (Anfang.IstNull()) Anfang = Decimal(1);
            ImPrimaerbereich = true;
            // 2, 3 and 5 by hand; from 7 on the raster's count (which leaves them out).
            int64_t klein = 0;
            for (int32_t p : {2, 3, 5}) klein += Decimal(p) >= Anfang && Decimal(p) <= Ende;
            const Decimal ab = Anfang < Decimal(7) ? Decimal(7) : Anfang;
            Anzahl = klein + (ab <= Ende ? PrimAnzahl(ab, Ende).AlsInt64() : 0);
            fenster_.AnzahlZeigen(ZahlFormat(static_cast<long long>(Anzahl)));
        } else {
            if (!AnzeigeStumm && Laenge > Decimal(100000000) && !SekundaerAnfrageGross()) return false;
            if (ZufallModus != 0) {
                ZufallSeiteEinrichten(Ende, Laenge);
                Anzahl = 0;
                fenster_.AnzahlZeigen("?");
            } else {
                if (ziel) SekundaerFortschrittZeigen(*ziel);
                SekundaerFortschrittSetzen(ziel);
                const bool gesiebt = SekundaerPruefen(Anfang, Laenge);
                SekundaerFortschrittLoesen();
                if (!gesiebt) {
                    fenster_.FortschrittVerbergen();
                    return false;
                }
                meinStart_ = SekundaerStart;
                meinEnde_ = SekundaerEnde;
                Anzahl = SekundaerZaehlen(Anfang, Ende);
                fenster_.FortschrittVerbergen();
                fenster_.AnzahlZeigen(ZahlFormat(static_cast<long long>(Anzahl)));
            }
        }
    }
    BereichBereit = true;
    Aktuell = Anfang;
    fenster_.Zeichnen();
    fenster_.NavigationSchalten(true);
    StoppUhrStop();
    return true;
}

bool AnzeigeLogik::holenTertiaer(const std::string& startText, const std::string& breiteText) {
    Hyp start;
    if (!TertiaerStartLesen(startText, start)) return false;
    Decimal breite;
    try {
        breite = TextZuDecimal(breiteText);
    } catch (const Laufzeitfehler&) {
        breite = Decimal(0);
    }
    if (breite < Decimal(1) || breite > Decimal(TertiaerBreiteMax)) {
        MsgInfoP1(1362, ZahlFormat(static_cast<long long>(TertiaerBreiteMax)));
        return false;
    }
    // The range before stays shown while the sieve runs, and stays if it is stopped.
    fenster_.TertiaerLaeuft(true, Text(510));
    Abbruch = false;
    const bool ok = tertiaer_.Sieben(start, int32_t(breite.AlsInt64()), AnzeigeStumm ? nullptr : fenster_.TertiaerZiel());
    fenster_.TertiaerLaeuft(false, "");
    if (!ok) {
        if (BereichBereit) anzahlTertiaer();
        return false;
    }
    seiteGueltig_ = false;
    Anfang = Decimal(0);
    Laenge = breite;
    Ende = breite;
    Aktuell = Decimal(0);
    anzahlTertiaer();
    fenster_.TertiaerBereitZeigen(false);
    BereichBereit = true;
    fenster_.Zeichnen();
    fenster_.NavigationSchalten(true);
    StoppUhrStop();
    return true;
}

void AnzeigeLogik::anzahlTertiaer() {
    const bool getestet = tertiaer_.Getestet();
    Anzahl = tertiaer_.Anzahl(getestet);
    fenster_.AnzahlZeigen(TextP1(getestet ? 1364 : 1363, ZahlFormat(static_cast<long long>(Anzahl))));
}

bool AnzeigeLogik::Testen() {
    if (Modus != 6 || !BereichBereit) return false;
    fenster_.TertiaerLaeuft(true, Text(1365));
    Abbruch = false;
    const bool ok = tertiaer_.Testen(fenster_.TertiaerZiel());
    fenster_.TertiaerLaeuft(false, "");
    anzahlTertiaer();
    if (ok) fenster_.TertiaerBereitZeigen(true);
    seiteGueltig_ = false;
    fenster_.Zeichnen();
    return ok;
}

void AnzeigeLogik::ListeSchreiben(const std::function<void(const std::string&)>& zeile) const {
    if (Modus != 6 || !BereichBereit) return;
    const bool prim = nurPrim();
    zeile(TextP1P2(prim ? 1367 : 1366, tertiaer_.StartZiffern(), ZahlFormat(static_cast<long long>(tertiaer_.Breite()))));
    for (int32_t p : tertiaer_.Klein()) zeile(std::to_string(p));
    tertiaer_.Durchlaufen(0, tertiaer_.Breite(), prim, [&](int64_t d) { return zeile(tertiaer_.Ziffern(d)), true; });
}

bool AnzeigeLogik::Exportieren(const std::string& pfad) const {
    std::ofstream aus(pfad, std::ios::binary | std::ios::trunc);
    if (aus) ListeSchreiben([&](const std::string& z) { aus << z << '\n'; });
    aus.flush();
    if (!aus) {
        MsgInfoP1(1368, pfad);
        return false;
    }
    return true;
}

bool AnzeigeLogik::eigenerBereichSteht() {
    // Mode 6 pages through its own copy of the raster.
    if (Modus == 6 || ImPrimaerbereich || (ZufallModus != 0 && Modus != 5)) return true;
    if (!SekundaerRaster.empty() && SekundaerStart == meinStart_ && SekundaerEnde == meinEnde_) return true;
    // Another window sieved in between: the range is fetched again, silently, unless that
    // window's job is still running on the raster (this is one of its yields).
    if (!SekundaerErsetzbar()) return false;
    AnzeigeStumm = 1;
    StummWaechter waechter;
    const bool ok = Modus == 5 ? SekundaerQuadrato(Anfang, Ende, nullptr) : SekundaerSieben(Anfang, Laenge);
    if (ok) {
        meinStart_ = SekundaerStart;
        meinEnde_ = SekundaerEnde;
    }
    return ok;
}

bool AnzeigeLogik::istPrim(const Decimal& n) {
    if (Modus == 6) return tertiaer_.Prim(n.AlsInt64());
    if (n < Decimal(2)) return false;
    if (ImPrimaerbereich) return IstPrim(n);
    if (ZufallModus != 0 && Modus != 5) {
        if (RestMaske[uint32_t((n % Decimal(RasterSpanne)).AlsLong())] == 0) return false;
        return ZufallIstPrim(n);
    }
    return SekundaerIstPrim(n);
}

void AnzeigeLogik::Blaettern(int32_t befehl) {
    if (!BereichBereit) return;
    const Decimal seite = SeitenZahlen(), zeile = ZeilenZahlen();
    const auto letzte = [&] {
        Decimal n = Ende - seite + Decimal(1);
        if (n < Anfang) {
            Aktuell = Anfang;
            return;
        }
        // Outside mode 0 a page starts at the multiple of 30 at or below Aktuell; rounded
        // up to one, the last page still reaches Ende.
        const Decimal v(verschiebung());
        const Decimal rest = (n + v) % Dreissig;
        if (Modus != 0 && !rest.IstNull()) n = n + Dreissig - rest;
        Aktuell = n;
    };
    switch (befehl) {
        case 0: Aktuell = Anfang; break;
        case 1:
        case 2: {
            const Decimal n = Aktuell - (befehl == 1 ? seite : zeile);
            if (n >= Anfang) Aktuell = n;
            break;
        }
        case 3:
        case 4: {
            const Decimal n = Aktuell + (befehl == 4 ? seite : zeile);
            if (n > Ende) {
                letzte();
            } else {
                Aktuell = n;
            }
            break;
        }
        case 5: letzte(); break;
        default: return;
    }
    fenster_.Zeichnen();
}

AnzeigeSeite AnzeigeLogik::Seite() {
    AnzeigeSeite seite;
    if (!BereichBereit || !eigenerBereichSteht()) return seite;
    if (seiteGueltig_ && seiteAktuell_ == Aktuell) return seite_;
    const Decimal basis = seitenBasis();
    const int32_t zellen = spalten_ * zeilen_;
    seite.zellen.reserve(size_t(zellen));
    Decimal vorige, erste;
    bool hatVorige = false;  // in mode 6 the distance 0 is a number like any other
    int32_t imBereich = 0;
    for (int32_t i = 0; i < zellen; ++i) {
        AnzeigeZelle z;
        z.zahl = zelleZahl(basis, i);
        z.imBereich = z.zahl >= Anfang && z.zahl <= Ende;
        if (z.imBereich) {
            if (imBereich++ == 0) erste = z.zahl;
            z.prim = istPrim(z.zahl);
            if (Modus == 6 && !z.prim && Auswahl == 0) z.verworfen = tertiaer_.Kandidat(z.zahl.AlsInt64());
        }
        if (z.prim) {
            ++seite.primzahlen;
            if (hatVorige) {
                z.luecke = int32_t((z.zahl - vorige).AlsInt64());
                if (z.luecke > seite.groessteLuecke) seite.groessteLuecke = z.luecke;
            }
            vorige = z.zahl;
            hatVorige = true;
        }
        seite.zellen.push_back(z);
    }
    const Decimal kopfZahl = imBereich ? erste : (basis < Anfang ? Anfang : basis);
    if (Modus == 6) {
        // The start's digits were made once; the page adds its distance to them.
        seite.kandidaten = !tertiaer_.Getestet();
        seite.kopf = "Diese Seite startet mit: " + ZiffernAnzeige(tertiaer_.Ziffern(kopfZahl.AlsInt64())) + "   " +
                     Text(seite.kandidaten ? 1369 : (Auswahl == 0 ? 1371 : 1370));
    } else {
        seite.kopf = "Diese Seite startet mit: " + ZahlFormat(kopfZahl);
    }
    // Without a cell of their own the primes 2, 3 and 5 head the page that starts at 0.
    if (Modus != 0 && (basis + Decimal(verschiebung())).IstNull()) {
        std::string klein;
        for (int32_t p : kleinInBereich()) {
            seite.vorweg.push_back(p);
            klein += (klein.empty() ? "" : ", ") + std::to_string(p);
        }
        if (!klein.empty()) seite.kopf += "   (dazu " + klein + ")";
    }
    if (ZufallModus != 0 && !ImPrimaerbereich && Modus != 5) {
        // What chance gave against what the prime number theorem expects on these numbers.
        const double x = erste.Double();
        const double erwartet = x > 1 ? double(Modus == 0 ? imBereich : imBereich * 30 / 8) / std::log(x) : 0;
        std::ostringstream s;
        s.setf(std::ios::fixed);
        s.precision(1);
        s << "   Zufallsraster " << RandomInfoText << ": " << seite.primzahlen << " gezogen, erwartet " << erwartet
          << ", A = " << ZufallAbstand;
        seite.kopf += s.str();
    }
    seite_ = seite;
    seiteAktuell_ = Aktuell;
    seiteGueltig_ = true;
    return seite;
}

std::vector<int32_t> AnzeigeLogik::kleinInBereich() const {
    if (Modus == 6) return tertiaer_.Klein();
    std::vector<int32_t> klein;
    for (int32_t p : {2, 3, 5}) {
        if (Decimal(p) >= Anfang && Decimal(p) <= Ende) klein.push_back(p);
    }
    return klein;
}

bool AnzeigeLogik::musterBauen(int16_t art) {
    switch (art) {
        case SucheZwillinge: SucheMuster = {2}; return true;
        case SucheDrillinge: SucheMuster = SuchMuster == 1 ? std::vector<int32_t>{4, 6} : std::vector<int32_t>{2, 6}; return true;
        case SucheVierlinge: SucheMuster = {2, 6, 8}; return true;
        case SucheFrei: break;
        default: return false;
    }
    // The free pattern: offsets separated by blanks, commas or semicolons, a leading 0 allowed.
    std::string text = SuchMusterText;
    for (char& c : text) {
        if (c == ',' || c == ';') c = ' ';
    }
    std::istringstream ein(text);
    std::vector<int32_t> muster;
    std::string wort;
    int32_t vorher = 0;
    while (ein >> wort) {
        char* ende = nullptr;
        const long v = std::strtol(wort.c_str(), &ende, 10);
        if (*ende != 0 || v < 0 || v > 100000) {
            MsgInfoText("Das Muster besteht aus Abständen wie \"2 6 8\": " + wort + " ist keiner.");
            return false;
        }
        if (v == 0 && muster.empty() && vorher == 0) continue;
        if (v <= vorher || v % 2 != 0) {
            MsgInfoText("Die Abstände des Musters müssen gerade sein und wachsen: " + wort);
            return false;
        }
        muster.push_back(int32_t(v));
        vorher = int32_t(v);
    }
    if (muster.empty()) {
        MsgInfoText("Das Muster braucht mindestens einen Abstand, etwa \"2 6 8\".");
        return false;
    }
    SucheMuster = muster;
    return true;
}

// vorige: for the gap search the last prime walked so far, carried from one range to the
// next, so that a gap longer than the overlap of two ranges is seen across their seam.
bool AnzeigeLogik::imRangeSuchen(int16_t art, const Decimal& ab, std::optional<Decimal>& vorige) {
    if (ab > Ende) return false;
    const Decimal letzter = art == SucheLueckeArt || SucheMuster.empty() ? Decimal(0) : Decimal(SucheMuster.back());
    bool treffer = false, ende = false;
    uint64_t gelaufen = 0;
    const auto pruefen = [&](const Decimal& c) {
        if ((++gelaufen % SuchTakt) == 0) {
            DoEvents();
            if (SucheAbbruch) return ende = true, false;
        }
        if (art == SucheLueckeArt) {
            if (vorige && c <= *vorige) return true;  // walked already in the range before
            if (vorige && (c - *vorige).Double() >= SucheLuecke) {
                Aktuell = *vorige;
                return treffer = true, false;
            }
            vorige = c;
            return true;
        }
        if (c + letzter > Ende) return ende = true, false;
        for (int32_t o : SucheMuster) {
            if (!istPrim(c + Decimal(o))) return true;
        }
        Aktuell = c;
        return treffer = true, false;
    };
    if (Modus == 6) {
        // Within the window only, in distances from its start: the hit's distance is Aktuell.
        tertiaer_.Durchlaufen(ab.AlsInt64(), Ende.AlsInt64(), true, [&](int64_t d) { return pruefen(Decimal(d)); });
    } else if (ImPrimaerbereich) {
        PrimzahlenDurchlaufen(uint64_t(ab.AlsInt64()), uint64_t(Ende.AlsInt64()), [&](uint64_t p) { return pruefen(Decimal(p)); });
    } else {
        if (!eigenerBereichSteht()) return false;
        SekundaerDurchlaufen(ab.Betrag(), Ende.Betrag(), [&](Zahl128 p) { return pruefen(Decimal(p)); });
    }
    (void)ende;
    return treffer;
}

bool AnzeigeLogik::Suchen(int16_t art) {
    if (ZufallModus != 0) {
        MsgInfo(418);
        return false;
    }
    if (!BereichBereit) return false;
    if (art == SucheLueckeArt) {
        if (!(SucheLuecke >= 2)) {
            MsgInfoText("Die gesuchte Lücke muss mindestens 2 sein.");
            return false;
        }
    } else if (!musterBauen(art)) {
        return false;
    }
    // The search looks behind Aktuell, so a pattern as wide as the range never fits in it,
    // nor in any range it moves on to.
    const int32_t breite = art == SucheLueckeArt ? 0 : SucheMuster.back();
    if (art != SucheLueckeArt && Decimal(breite) >= Laenge) {
        MsgInfoP1P2(1000, ZahlFormat(static_cast<long long>(breite)), ZahlFormat(Laenge));
        return false;
    }
    StummWaechter waechter;
    std::optional<Decimal> vorige;
    for (;;) {
        if (imRangeSuchen(art, Aktuell + Decimal(1), vorige)) {
            if (Aktuell < Anfang) {
                // A gap that began in the range before: the range moves back to its first
                // prime, so that the page shows the whole gap.
                Anfang = Aktuell;
                fenster_.AnfangSchreiben(ZahlFormat(Anfang));
                Ende = Anfang + Laenge;
                AnzeigeStumm = 1;
                if (!holen()) return false;
            }
            fenster_.Zeichnen();
            return true;
        }
        if (SucheAbbruch) return false;
        if (!SekundaerDurchsuchen || Modus == 6) {
            MsgInfo(1001);
            return false;
        }
        // On into the next range. A first prime in the last numbers of this range, whose
        // pattern reached beyond its end, could not be tested here; the ranges overlap by the
        // pattern's width, at least a word, so that it lies whole in the next one. A range
        // shorter than two words overlaps by half its length (or the width), and the search
        // moves on by at least one number, so it never stands still.
        const Decimal halbe = Laenge / Decimal(2);
        Decimal ueberlappung = halbe < Decimal(RasterSpanne) ? halbe : Decimal(RasterSpanne);
        if (ueberlappung < Decimal(breite)) ueberlappung = Decimal(breite);
        Decimal schritt = Laenge - ueberlappung;
        if (schritt < Decimal(1)) schritt = Decimal(1);
        Anfang = Anfang + schritt;
        Ende = Anfang + Laenge;
        fenster_.AnfangSchreiben(ZahlFormat(Anfang));
        AnzeigeStumm = 1;
        ImPrimaerbereich = false;
        if (!holen()) return false;
        DoEvents();
        if (SucheAbbruch) return false;
    }
}

}  // namespace sw
