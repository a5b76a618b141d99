// Anzeige: the logic of the prime display frmAnzeige, free of any toolkit. It fetches a range
// (primary raster, secondary window, the window of mode 5, or in mode 6 a window above a start
// of any size, whose cells are distances from that start), pages through it in numbers,
// turns the cells of a page into numbers, and searches patterns of primes, moving on into
// overlapping secondary ranges when asked. The window paints what Seite() describes.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "frame/Decimal.h"
#include "views/TertiaerBereich.h"

namespace sw {

class SekundaerFortschrittZiel;
class TertiaerFenster;

// What the logic needs of its window. The desktop window implements it on its controls.
class AnzeigeFenster {
public:
    virtual ~AnzeigeFenster() = default;
    virtual void NavigationSchalten(bool an) = 0;              // the toolbar icons Nav0..Nav5
    virtual void AnzahlZeigen(const std::string& text) = 0;    // lblCount, fraCount shown
    virtual void FortschrittVerbergen() = 0;                   // fraFortschritt hidden
    virtual SekundaerFortschrittZiel* Fortschritt() = 0;       // the progress labels, or null
    virtual void AnfangSchreiben(const std::string& text) = 0; // the first input field
    virtual void Zeichnen() = 0;                               // paint the page anew
    // Mode 6: the stop button and the bar of the sieve and the test while they run (text in
    // lblCount), and the controls for a range that stands (test, choice, export).
    virtual TertiaerFenster* TertiaerZiel() { return nullptr; }
    virtual void TertiaerLaeuft(bool /*laeuft*/, const std::string& /*text*/) {}
    virtual void TertiaerBereitZeigen(bool /*getestet*/) {}
};

// The search kinds of frmSuchen.
enum SuchArt : int16_t { SucheZwillinge = 0, SucheDrillinge = 1, SucheVierlinge = 2, SucheFrei = 3, SucheLueckeArt = 4 };

// One cell of a page.
struct AnzeigeZelle {
    Decimal zahl;
    bool imBereich = false;  // within Anfang .. Ende
    bool prim = false;       // in mode 6: a candidate of the sieve, or after the test a probable prime
    bool verworfen = false;  // mode 6: a candidate the test found composite (shown when chosen)
    int32_t luecke = 0;      // for a prime: the gap to the prime before it on the page, 0 for the first
};

struct AnzeigeSeite {
    std::vector<AnzeigeZelle> zellen;  // row by row
    std::vector<int32_t> vorweg;       // 2, 3, 5 where they are in the range but have no cell (mode 1)
    int32_t primzahlen = 0;            // primes on the page
    int32_t groessteLuecke = 0;
    bool kandidaten = false;           // mode 6: the marks are untested candidates of the sieve
    std::string kopf;                  // "Diese Seite startet mit: ..." (and the random raster's figures)
};

// The cancel flag of the search dialog; the search ends behind its next yield.
extern bool SucheAbbruch;

class AnzeigeLogik {
public:
    explicit AnzeigeLogik(AnzeigeFenster& fenster) : fenster_(fenster) {}

    // Modes 0 and 1 show the raster (1: only the numbers coprime to 30), 5 the window of
    // SekundaerQuadrato (as mode 1), 6 the large range (as mode 1, in distances from its start:
    // Anfang 0, Ende the width).
    int32_t Modus = 0;
    // Mode 6: what the list and export hold, and whether the page shows the candidates the test
    // struck: 0 every candidate of the sieve, 1 only the probable primes (once tested).
    int32_t Auswahl = 0;
    void AuswahlSetzen(int32_t auswahl) {
        Auswahl = auswahl;
        seiteGueltig_ = false;
    }
    Decimal Anfang, Laenge, Ende, Aktuell;
    int64_t Anzahl = 0;
    bool ImPrimaerbereich = false;
    bool BereichBereit = false;
    std::vector<int32_t> SucheMuster;  // offsets from the first prime of the pattern

    // Set by frmSuchen.
    int32_t SuchMuster = 0;            // triplets: 0 for (0,2,6), 1 for (0,4,6)
    std::string SuchMusterText;        // the free pattern: offsets such as "2 6 8 12"
    bool SekundaerDurchsuchen = false;
    double SucheLuecke = 0;

    // The page geometry the painter gives: columns and rows of cells. In mode 0 a line holds
    // as many numbers as columns; else the columns are rounded to whole 30s (8 cells each).
    void GeometrieSetzen(int32_t spalten, int32_t zeilen);
    int32_t Spalten() const { return spalten_; }
    int32_t Zeilen() const { return zeilen_; }
    Decimal ZeilenZahlen() const;   // numbers per line
    Decimal SeitenZahlen() const;   // numbers per page

    // btnGO: reads the two input texts and fetches the range; false (after its box) if refused,
    // also before the first run (PrimaerRasterVorhanden), except for the random raster. In
    // mode 6 the texts are the start (a number or a formula) and the width.
    bool BereichHolen(const std::string& anfangText, const std::string& laengeText);
    // True when this mode has the raster it shows; else says that the raster is missing. Only
    // the random raster shows something without the primary raster.
    bool RasterDa() const;
    // Toolbar navigation 0..5: first page, page up, line up, line down, page down, last page.
    void Blaettern(int32_t befehl);
    // The page at Aktuell.
    AnzeigeSeite Seite();
    // The number of the cell (in mode 6 its distance from the start), or nothing if the cell
    // lies outside Anfang .. Ende (no detail window).
    std::optional<Decimal> ZelleZahl(int32_t zeile, int32_t spalte) const;
    // Mode 6: BPSW over the candidates (btnZusatz); false if stopped or no range stands.
    bool Testen();
    // Mode 6: the list of the choice, line by line: a head line naming start, width and state,
    // then the numbers in full. Exportieren writes it to a file; false after its box.
    void ListeSchreiben(const std::function<void(const std::string&)>& zeile) const;
    bool Exportieren(const std::string& pfad) const;
    const TertiaerBereich& Tertiaer() const { return tertiaer_; }
    // Looks for the pattern behind Aktuell and brings a hit to the top of the page. A pattern
    // at least as wide as the range is refused (text 1000); a search that reaches the end
    // without a hit says so (text 1001), one that was cancelled does not.
    bool Suchen(int16_t art);

private:
    bool holen();
    bool holenTertiaer(const std::string& startText, const std::string& breiteText);
    void anzahlTertiaer();
    bool nurPrim() const { return Auswahl == 1 && tertiaer_.Getestet(); }
    int32_t verschiebung() const { return Modus == 6 ? tertiaer_.Rest30() : 0; }
    std::vector<int32_t> kleinInBereich() const;
    bool musterBauen(int16_t art);
    bool istPrim(const Decimal& n);
    bool imRangeSuchen(int16_t art, const Decimal& ab, std::optional<Decimal>& vorige);
    bool eigenerBereichSteht();
    Decimal seitenBasis() const;
    Decimal zelleZahl(const Decimal& basis, int32_t index) const;

    AnzeigeFenster& fenster_;
    int32_t spalten_ = 16, zeilen_ = 20;
    // The page last built, kept until the range, the place or the geometry change: the
    // random raster must not draw anew each time the window repaints.
    AnzeigeSeite seite_;
    Decimal seiteAktuell_;
    bool seiteGueltig_ = false;
    Decimal meinStart_, meinEnde_;  // the secondary window this display sieved
    TertiaerBereich tertiaer_;       // the range of mode 6
};

}  // namespace sw
