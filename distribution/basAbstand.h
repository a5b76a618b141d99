// basAbstand: the counting behind the gap graphic. How often each difference between primes
// occurs in a stretch, counted over neighbours only, as the plain run of the gaps, as the
// density of primes along the stretch, or over all pairs; read from the primary raster, from a
// secondary range, or from the random raster. Beside the counts: the Hardy-Littlewood estimate
// of the twins the bars are read against, the singular series that carries it to every
// difference, and the names of large numbers of the labels.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "frame/Decimal.h"

namespace sw {

using Zahl128 = unsigned __int128;

// The twin prime constant 2·prod(1 - 1/(p-1)^2), cut to ten places.
inline constexpr double ZwillingsKonstante = 1.3203236316;

// The kinds of optZaehlung. A secondary range is counted as neighbours.
enum Zaehlart : int32_t {
    ArtNachbarn = 0,   // A: gaps between neighbouring primes, one bar per difference
    ArtFolge = 1,      // B: the gaps in order, bar i the i-th gap
    ArtDichte = 2,     // C: primes per equal part of the stretch
    ArtPaare = 3,      // D: all pairs, not only neighbours
    ArtSekundaer = 4,  // E: neighbours in a secondary range above the primary raster
};

// The number of the last bar for a picture width: (breite div (balkenBreite + 1)) - 1; below 1
// there are no bars.
int32_t BalkenZahl(int32_t breite, int32_t balkenBreite);

// One count over a stretch [start, ende]. The primes are fed in ascending order, by whole raster
// words or one by one; the bars have the indices 0..n. For A, D and E bar i stands for the
// difference von + 2i, for B for the gap number von + i (0 the first gap of the stretch), for C
// for the i-th of n + 1 equal parts of the stretch. The stretch may lie anywhere below 2^128,
// but must be shorter than 2^64.
class AbstandZaehlung {
public:
    AbstandZaehlung(int32_t art, Zahl128 start, Zahl128 ende, int64_t von, int32_t n);

    // One prime (start <= p <= ende, above the last one fed).
    void Prim(Zahl128 p);
    // The clear bits of raster[erstes .. letztes) read as basis0 + 120·word + residue, those of
    // the stretch only. False once nothing further can count (past the end, or B full).
    bool Woerter(const uint32_t* raster, uint64_t erstes, uint64_t letztes, Zahl128 basis0);
    // The candidates of the same words, every residue prime to 30, each decided by istPrim:
    // the random raster, which has no bits of its own.
    bool Kandidaten(uint64_t erstes, uint64_t letztes, Zahl128 basis0, const std::function<bool(Zahl128)>& istPrim);

    const std::vector<int64_t>& Anzahl() const { return anzahl_; }
    uint64_t Primzahlen() const { return primzahlen_; }
    bool Fertig() const { return fertig_; }
    int32_t Art() const { return art_; }

private:
    void feldPrim(uint64_t x);
    template <bool Nachbarn>
    bool woerter(const uint32_t* raster, uint64_t erstes, uint64_t letztes, uint64_t basis);

    int32_t art_;
    Zahl128 ursprung_;      // start rounded down to a word: positions are kept relative to it
    uint64_t startAb_, endeAb_;
    int64_t von_;
    int32_t n_;
    std::vector<int64_t> anzahl_;
    uint64_t primzahlen_ = 0;
    uint64_t vorige_ = 0;   // the previous prime, relative; valid once primzahlen_ > 0
    uint64_t teil_ = 1;     // C: length of one part
    std::vector<uint64_t> fenster_;  // D: the primes within reach of the last difference
    size_t fensterAnfang_ = 0;
    bool fertig_ = false;
};

// A count of a whole stretch. melden(anteil) is called between blocks of raster words with the
// share done; it yields, shows progress, and returns false to stop (the bars stay as counted).
using AbstandMelder = std::function<bool(double anteil)>;

// The primary raster from start to ende (ende at most PrimaerGrenze); 2, 3 and 5, which have no
// bit, are fed by hand. False if stopped.
bool AbstandPrimaerZaehlen(AbstandZaehlung& z, Zahl128 start, Zahl128 ende, const AbstandMelder& melden);
// The secondary range as it stands (it must cover [start, ende]). False if stopped.
bool AbstandSekundaerZaehlen(AbstandZaehlung& z, Zahl128 start, Zahl128 ende, const AbstandMelder& melden);
// The random raster over [start, ende]: set up for the stretch, every candidate drawn anew.
bool AbstandZufallZaehlen(AbstandZaehlung& z, Zahl128 start, Zahl128 ende, const AbstandMelder& melden);

// For all prime pairs of [von, bis] of the primary raster, not only neighbours, the number with
// each difference: element k for the difference 2k, k from 1 to n div 2 - 1 (element 0 stays 0).
// von below 3 starts from 2. Without erlaubt, message 526 and an empty result. A stop by
// melden leaves the pairs counted so far.
std::vector<int64_t> PaarAbstaende(int64_t von, int64_t bis, int32_t n, bool erlaubt,
                                   const AbstandMelder& melden = nullptr);

// The expected count of twins in a stretch of length w near x, by EingabeModus: 0 both as
// numbers (x below 10 taken as 10), 1 x as a power of ten, 2 both as powers of ten. Nothing for
// x = 0, w <= 0 or a value that would not be finite (the caller shows text 424).
std::optional<double> Zwillingsschaetzung(int32_t modus, double x, double w);
// The factor by which pairs of difference d are more frequent than twins:
// prod (p - 1)/(p - 2) over the odd primes p dividing d; 0 for odd d.
double SingulaereReihe(int64_t d);

// A large number as a German name: "3 Milliarden", "1 Billion", "2,5 Trilliarden"; below a
// million grouped digits, beyond the Dezilliarden "n x 10^k".
std::string ZahlName(double v);
// A value of a label: two places below 10^7, else in the form "0.00 E+".
std::string LabelZahl(double v);
// The deviation of a bar in the lists, "0.0000000".
std::string AbweichungText(double v);

}  // namespace sw
