// Zufall: the random raster. With it on, the prime display shows above the primary range, in
// place of the true primes, numbers drawn by chance with the density the prime number theorem
// gives, so that the true distribution can be held against a random one. Nothing is stored:
// each number is decided when it is looked at. The settings live in SW.Ini (frame/Programm).
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "frame/Decimal.h"

namespace sw {

extern int32_t ZufallModus;                 // 0 off, else the option chosen in frmZufall
extern double ZufallAbstand;                // A: twice the expected gap among the candidates
extern double ZufallDichte;                 // the mean gap of the primes near the range
extern double ZufallFaktor;                 // share of candidates times RandomProzentFaktor
extern std::vector<int32_t> ZufallFaktoren; // the primes 7..29 excluded besides 2, 3 and 5

// Fills ZufallFaktoren from RandomFaktorBitKette; the share of numbers free of 2, 3, 5 and them.
double ZufallFaktorAufbauen();
// The natural logarithm of x, the mean gap near x; 0 if that is not positive.
double ZufallMittlererAbstand(const Decimal& x, const Decimal& laenge);
// The page set-up of the display: ZufallDichte, ZufallFaktor and ZufallAbstand for a range
// that ends at ende.
void ZufallSeiteEinrichten(const Decimal& ende, const Decimal& laenge);
// Whether n is taken: never a multiple of a chosen prime, else with probability about 2/A.
bool ZufallIstPrim(const Decimal& n);
// Seeds the generator (frmZufall seeds it from the clock).
void ZufallSaat(uint64_t saat);

// ---- the logic of frmZufall --------------------------------------------------------------
// The info text: "(2,3,5" and each chosen prime, ")"; then for 0 < prozent < 99 the sign,
// the percentage by "0.00" and "%"; 99 or more gives "Fehler".
std::string ZufallInfoText(int32_t bitKette, double prozent, bool plus);
// Memory of a range of 10^exponent numbers at 4 bytes each: "40 MB" and so on.
std::string ZufallSpeicherText(int32_t exponent);
// The percentage as typed ("," read as "."); false if it is no number.
bool ZufallProzentLesen(const std::string& text, double& prozent);
// btnGO: refuses a percentage of 99 or more (information 406, false); else sets ZufallModus,
// RandomProzentFaktor, RandomFaktorBitKette, RandomPrimIntervall and RandomInfoText (in
// option 2 the grouped 10^exponent) and seeds the generator from the clock.
bool ZufallUebernehmen(int32_t modus, double prozent, bool plus, int32_t bitKette, int32_t exponent);

}  // namespace sw
