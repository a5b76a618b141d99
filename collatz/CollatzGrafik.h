// CollatzGrafik: the step-count graphic apart from its drawing. One column per start value,
// its height set by the number of steps down to 1; here live the reading of the inputs, the
// filling of the columns, where a step count lies on the picture in both modes, the hover
// text of one column and the navigation. The window only turns these numbers into pixels.
//
// Start values are numbers of any size: up to 2^59 they are counted by the library's
// aUlamAnzi; with the limit lifted (OhneGrenze) larger starts are counted on the Hyp by
// CollatzZaehlen, which has no bound but takes longer.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "primality/HypMpz.h"

namespace sw {

struct CollatzGrafik {
    Mpz Von{1};                // the first start value
    int64_t Schritt = 1;       // distance of two start values, at least 1
    Mpz Spanne{1};             // the start values of one screen: columns * Schritt
    int32_t LinienHoehe = 3;   // pixels of one line of equal step count, at least 0
    int32_t LinienAbstand = 1; // pixels between two lines, at least 1
    int32_t ZahlenBreite = 1;  // pixels of one column, at least 1
    std::vector<int32_t> Werte;  // the step count of each column
    int32_t MinWert = 9999;
    int32_t MaxWert = 0;
    int32_t Verschiebung = 0;  // lines scrolled up in the normal mode
    bool Flag = false;         // drawn once (the first drawing comes with the first activation)
    bool Maximal = false;      // maximal mode: a linear scale over the whole height
    int32_t FixMin = 0;        // a fixed smallest step count, used when above 0
    bool OhneGrenze = false;   // starts beyond 2^59 allowed
};

// The highest start of the graphic while the limit stands.
Mpz GrafikGrenze();

// Reads the inputs into g. False (nothing changed) when the start lies outside 1..2^59, or
// below 1 with the limit lifted: the caller shows text 453. A start that is no number throws
// the evaluator's Laufzeitfehler. The pixel fields fall back to their smallest values.
bool GrafikLesen(CollatzGrafik& g, const std::string& von, const std::string& plus, const std::string& zahlenBreite,
                 const std::string& linienHoehe, const std::string& linienAbstand, const std::string& fixMin);

// The start value of column index.
Mpz GrafikWert(const CollatzGrafik& g, int64_t index);

// Fills Werte for a picture breite pixels wide (indices 0 to breite div ZahlenBreite) and sets
// MinWert, MaxWert and Spanne. False when the user stopped it (Abbruch); the columns not yet
// counted then hold 0.
bool GrafikFuellen(CollatzGrafik& g, int32_t breite);

// The steps of one start, by the library below 2^96 and on the Hyp above. False when the
// user stopped a walk inside a huge number.
bool GrafikZaehlen(const Mpz& wert, int32_t& schritte);

// Where the lines of the normal mode lie on a picture hoehe pixels high whose top kopf pixels
// stay free for the labels: the step counts of the lowest and the highest line drawn (the
// highest is MaxWert unless the picture is full first; letzte < erste when none fits).
struct GrafikLinien {
    int32_t erste = 0;
    int32_t letzte = -1;
};
GrafikLinien NormalLinien(const CollatzGrafik& g, int32_t hoehe, int32_t kopf);
// The top row of the stroke of step count v in the normal mode; its height is
// max(LinienHoehe, 1).
int32_t NormalZeile(const CollatzGrafik& g, int32_t v, int32_t hoehe);

// The maximal mode: the row of step count v, MinWert at the foot and five percent head room
// above MaxWert; and the step count that a label at position pixels above the foot names.
int32_t MaximalZeile(const CollatzGrafik& g, int32_t v, int32_t hoehe);
int32_t MaximalSkalenWert(const CollatzGrafik& g, int32_t position, int32_t hoehe);

// The hover over the column under pixel x: the start value, its marks i.m (i marks, m of
// them "!") and how its size compares with 2^i / 6^m. Nothing past the last column.
struct GrafikHover {
    int64_t index = 0;
    std::string text;     // value " i.m=" i "." m " " marks (short form "(k)" with kurz)
    std::string prozent;  // 100 * value / (2^i / 6^m) as "0.00000 %"
    int32_t i = 0, m = 0;
};
std::optional<GrafikHover> GrafikHoverText(const CollatzGrafik& g, int32_t x, bool kurz);
// The hover text cut into rows of at most breite characters (one row when breite < 1).
std::vector<std::string> GrafikHoverZeilen(const std::string& text, int32_t breite);

// Navigation. The three distances of txtNav are separated by ";" or blanks; an empty or
// missing distance means a screen (Spanne). code: 0 back by the third distance, 1 back a
// screen, 2 the lines up, 3 the lines down, 4 forward a screen, 5 forward by the third
// distance. The start never goes below 1. Codes 2 and 3 move Verschiebung by half the
// lines of the picture (zeilen), never below 0, and leave the start.
Mpz GrafikDistanz(const CollatzGrafik& g, const std::string& nav, int32_t nummer);
Mpz GrafikVerschieben(const Mpz& von, const Mpz& distanz, bool vor);
Mpz GrafikNavigation(CollatzGrafik& g, int32_t code, const std::string& nav, int32_t zeilen);

// The columns as CSV: start value; steps.
std::string GrafikCsv(const CollatzGrafik& g);

}  // namespace sw
