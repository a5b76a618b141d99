// Ulam: the integers laid along a rectangular spiral, one cell per number, each cell coloured
// by what its number is. The cells are kept as a model (number and colour per cell), so that
// the picture, the smoothing, the mouse readout and the exports all read the same record
// instead of pixels. Start, step and the step's growth are free: with a growth the numbers
// follow a quadratic polynomial, and prime-generating polynomials show as diagonal lines.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace sw {

enum class UlamFarbe : uint8_t {
    Leer,     // nothing drawn: not prime, not a square (or the walk never came here)
    Blau,     // a prime
    Schwarz,  // 2, 3, 5, 7 and the exponents of known Mersenne primes
    Gelb,     // a square (and 1, 4)
    Weiss,    // a prime taken away by the smoothing
};

struct UlamEingabe {
    int64_t innenZahl = 1;  // number of the centre cell
    int64_t schritt = 1;    // difference of two numbers along the spiral
    int64_t zuwachs = 0;    // added to the difference after each cell
    bool rad = false;       // "8v": the walk takes only the numbers coprime to 30
    int32_t seiteX = 1;     // first horizontal and vertical side, at least 1
    int32_t seiteY = 1;
    int32_t breite = 201;   // the picture in cells
    int32_t hoehe = 201;
};

struct UlamModell {
    int32_t breite = 0, hoehe = 0;
    int32_t mitteX = 0, mitteY = 0;
    std::vector<uint64_t> zahl;      // per cell, row by row; meaningful where besucht
    std::vector<UlamFarbe> farbe;
    std::vector<uint8_t> besucht;
    int64_t UlamZellen = 0;
    int64_t UlamPrimzellen = 0;
    uint64_t letzteZahl = 0;

    size_t index(int32_t x, int32_t y) const { return size_t(y) * size_t(breite) + size_t(x); }
    bool innen(int32_t x, int32_t y) const { return x >= 0 && y >= 0 && x < breite && y < hoehe; }
};

// The text of txtDiff "8v" chooses the wheel.
inline bool UlamRadText(const std::string& text) { return text == "8v" || text == "8V"; }

// Refuses what would read outside the raster or wrap: a negative centre (key 420), a negative
// step or growth, sides below 1, a picture without cells or of more than 2^25 (a cell
// takes eleven bytes while it is drawn); Laufzeitfehler with the message.
void UlamEingabePruefen(const UlamEingabe& e);

// The whole walk: right, up, left, down, each side growing by 2 after it is walked, until a step
// would leave the picture. Numbers at or below PrimaerGrenze are read in the primary raster;
// above it they are decided by a secondary window (or, for numbers spread too thinly for a
// window, by BPSW, a proof below 2^64). A number past 2^64 - 1 is a Laufzeitfehler. The
// primary raster must be a finished one. weiter(share) is asked now and then; false stops
// the walk, leaving the cells drawn so far.
UlamModell UlamZeichnen(const UlamEingabe& e, const std::function<bool(double)>& weiter = {});

// The colour of one number by its primality (n < 8 by hand, as the raster has no bits there).
UlamFarbe UlamZelleSetzen(uint64_t n, bool prim);

// Leaves only the primes on diagonal runs of at least laenge painted cells; the others turn
// white. laenge <= 1 leaves the picture. Works from the centre outward, quadrant by quadrant,
// so a run broken by an earlier whitening counts as broken.
void UlamGlaetten(UlamModell& m, int32_t laenge);
// True when the cell at (x, y) lies on no diagonal run of laenge painted cells.
bool UlamDiagonale(const UlamModell& m, int32_t x, int32_t y, int32_t laenge);

bool IstQuadrat(uint64_t n);

// The share of prime cells as lblMax shows it: "10.5 %".
std::string UlamAnteilText(const UlamModell& m);

// The colour of a cell as 0xRRGGBB: blue primes, black small and Mersenne exponents, yellow
// squares, white for nothing (the background) and for what the smoothing took.
uint32_t UlamRgb(UlamFarbe f);
// The picture of the model, zelle x zelle pixels per cell, 0xRRGGBB row by row.
std::vector<uint32_t> UlamPixel(const UlamModell& m, int32_t zelle);

// One line per cell the walk reached: "x;y;number;colour", the colour as a word.
std::string UlamCsv(const UlamModell& m);

}  // namespace sw
