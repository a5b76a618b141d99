// MersenneStatistik: what the Mersenne database holds, counted for the status and analysis
// windows and for `sw-cli db status|kclasses|gaps|bits|residues`: the settled share of each
// stretch of exponents, the classes of k and q, the gaps between exponents with divisors, the
// low bits and residues of k or of the divisor against the exponent, and the residue classes
// of primes and exponents.
//
// Every question reads the rows of its range once, segment file by segment file, through a
// read-only connection of its own: the files stay byte for byte as they were, a missing file
// is never created, and a divisor search that writes at the same time is neither disturbed nor
// made to switch files. Prime counts come from the primary raster, which must reach the end
// of the range. Refusals are Laufzeitfehler with a German message.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace sw {

// The settled exponents (status <> 0) of the stretches [von, von + skala), ... below bis.
struct StatusStrecke {
    int64_t von = 0, bis = 0;  // [von, bis)
    int64_t primzahlen = 0;    // primes in the stretch
    int64_t erledigt = 0;      // rows with a divisor or a Mersenne prime
};
std::vector<StatusStrecke> StatusStrecken(int64_t von, int64_t bis, int64_t skala);
// The share teil / ganzes in percent as "00.0000 %" ("45.8910 %"); "" when ganzes is 0.
std::string AnteilText(int64_t teil, int64_t ganzes);

// The overview of the status analysis over the exponents with a divisor (first divisor q of
// each): q = 1 or 7 mod 8, p = 1 or 2 mod 3, p = +1 or -1 mod 4, and q class i against p mod 3
// class j (qu[i][j]: i 0 for q = 1, 1 for q = 7; j 0 for p = 1, 1 for p = 2 mod 3).
struct KlassenUebersicht {
    int64_t zeilen = 0;
    int64_t q1 = 0, q7 = 0;
    int64_t p3Eins = 0, p3Zwei = 0;
    int64_t plus = 0, minus = 0;
    int64_t qu[2][2] = {{0, 0}, {0, 0}};
};
KlassenUebersicht StatusKlassen(int64_t von, int64_t bis);

// k of the first divisor mod 4, step by step from von to bis (both included). Rows whose k
// exceeds kMax are left out (kMax 0: all). klasse[r]: k = r mod 4; alle: every row with a
// divisor within kMax.
struct KSchritt {
    int64_t von = 0, bis = 0;
    int64_t primzahlen = 0;
    int64_t klasse[4] = {0, 0, 0, 0};
    int64_t alle = 0;
};
std::vector<KSchritt> KStatistik(int64_t von, int64_t bis, int64_t schritt, int64_t kMax);

// Differences between the exponents with a divisor from von to bis: only the gaps between
// neighbours (nurLuecken), or every difference of two of them, each up to abstandBis.
struct AbstandZeile {
    int64_t differenz = 0;
    int64_t anzahl = 0;
    double prozent = 0;  // share of all counted differences
};
std::vector<AbstandZeile> Abstaende(int64_t von, int64_t bis, int64_t abstandBis, bool nurLuecken,
                                    bool nachAnzahl);
// The list lines: "Lücke 6: 355 >>> 09,587" (share in percent, German decimal comma).
std::string AbstandText(const AbstandZeile& z, bool nurLuecken);

// Residues of the divisor q or of its k modulo `modulus`, against the exponent modulo
// pModulus, over the exponents with exactly one divisor. The low bits of a value are its
// residue modulo 2^bits. anzahl[pr * modulus + r] counts the rows with p = pr, value = r.
enum class AnalyseWert { Teiler, K };
struct RestTabelle {
    int32_t modulus = 1, pModulus = 1;
    std::vector<int64_t> anzahl;
    int64_t zeilen = 0;          // rows analysed
    int64_t uebersprungen = 0;   // rows with a divisor that has company ("x" lists)
    int64_t& at(int32_t pr, int32_t r) { return anzahl[size_t(pr) * size_t(modulus) + size_t(r)]; }
    int64_t at(int32_t pr, int32_t r) const { return anzahl[size_t(pr) * size_t(modulus) + size_t(r)]; }
};
RestTabelle RestAnalyse(int64_t von, int64_t bis, AnalyseWert wert, int32_t modulus, int32_t pModulus);

// Per residue class of each modulus: the primes from von to bis, the exponents with a divisor
// and the Mersenne prime exponents among them.
struct PrimKlasse {
    int32_t modulus = 1, rest = 0;
    int64_t primzahlen = 0, geteilt = 0, mersennePrim = 0;
};
std::vector<PrimKlasse> PrimKlassen(int64_t von, int64_t bis, const std::vector<int32_t>& moduln);

// The residue of a number in decimal digits; characters that are no digits end it.
uint32_t ZiffernRest(std::string_view ziffern, uint32_t modulus);

}  // namespace sw
