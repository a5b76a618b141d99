// The command families of sw-cli; each adds its subcommands to the application. The command
// that was chosen leaves its work in auftrag, which main runs once all flags are read.
#pragma once

#include <CLI/CLI.hpp>

#include <functional>
#include <string>

#include "frame/Decimal.h"
#include "primality/Faktorisierung.h"

namespace sw::cli {

// sieve: builds the primary raster by one of the seven methods, counts it, saves it.
void SiebBefehlAnmelden(CLI::App& app, std::function<void()>& auftrag);
// count, primes, next, prev, isprime: questions put to a raster.
void AbfrageBefehleAnmelden(CLI::App& app, std::function<void()>& auftrag);
// factor: the prime factors of a number of any size.
void FaktorBefehlAnmelden(CLI::App& app, std::function<void()>& auftrag);
// The factors of a factorisation as a JSON array (factor, exponent, prime, proven).
std::string JsonFaktoren(const Zerlegung& z);
// analyse: one number at a glance; series: a formula in n over a range with Bateman-Horn.
void AnalyseBefehleAnmelden(CLI::App& app, std::function<void()>& auftrag);
// eval: evaluates a formula and prints its value and digit count.
void EvalBefehlAnmelden(CLI::App& app, std::function<void()>& auftrag);
// test: one number of any size by one method of the prime test, proven or probable.
void TestBefehlAnmelden(CLI::App& app, std::function<void()>& auftrag);
// collatz-tree: the start values of exactly I steps of 3n+1, made backwards from 1.
void CollatzBaumBefehlAnmelden(CLI::App& app, std::function<void()>& auftrag);
// collatz-family: the Collatz counts of the members of a family of numbers (n!, n#, F(n), ...).
void CollatzFamilieBefehlAnmelden(CLI::App& app, std::function<void()>& auftrag);

// lucas: the Lucas-Lehmer test of 2^P - 1 by one of four methods, with checkpoints.
void LucasBefehlAnmelden(CLI::App& app, std::function<void()>& auftrag);
// divisors: the divisor search of 2^p - 1 over a range of exponents, into the database.
void TeilerBefehlAnmelden(CLI::App& app, std::function<void()>& auftrag);
// mersenne-system: the prime q of a range, each with the Mersenne number it divides.
void MersSystemBefehlAnmelden(CLI::App& app, std::function<void()>& auftrag);
// teileranalyse: the primes q of a range and the Mersenne numbers they divide.
void TeilerAnalyseBefehlAnmelden(CLI::App& app, std::function<void()>& auftrag);

// work and worker: the shared work queue on a PostgreSQL server and the workers that empty it.
void ArbeitBefehleAnmelden(CLI::App& app, std::function<void()>& auftrag);

// db: the Mersenne database (import, show, stats, merge).
void DbBefehlAnmelden(CLI::App& app, std::function<void()>& auftrag);
// Its analyses (status, kclasses, gaps, bits, residues); vorbereiten chooses the database
// folder of --db and gives --json.
void DbAnalyseAnmelden(CLI::App* db, std::function<void()>& auftrag, const std::function<bool()>& vorbereiten);

// collatz and collatz-count: one walk of any start, and the counts of a range of starts.
void CollatzBefehleAnmelden(CLI::App& app, std::function<void()>& auftrag);

// collatz-frac and collatz-frac-tree: the walk and the backward tree of a fractional multiplier.
void CollatzKommaBefehleAnmelden(CLI::App& app, std::function<void()>& auftrag);

// tertiary: a window at any height sieved by the primes up to a cut, its candidates tested.
void TertiaerBefehlAnmelden(CLI::App& app, std::function<void()>& auftrag);

// ulam: the Ulam spiral of a picture of cells; hash: the primes over the buckets of a bit fold.
void UlamBefehlAnmelden(CLI::App& app, std::function<void()>& auftrag);
void HashBefehlAnmelden(CLI::App& app, std::function<void()>& auftrag);
// goldbach: the splits of an even number into two primes, their count, and the count over a range.
void GoldbachBefehlAnmelden(CLI::App& app, std::function<void()>& auftrag);

// quadrat: roots, roots mod p, inverses, primitive roots, byte strings, word arithmetic, FFT product.
void QuadratBefehlAnmelden(CLI::App& app, std::function<void()>& auftrag);
// palindrome-tree: the numbers that stay prime while digits grow them right, left or at both ends.
void PalindromBefehlAnmelden(CLI::App& app, std::function<void()>& auftrag);

// twins; and the road of count and primes beyond the primary raster (the secondary sieve).
struct RasterWahl;
void SekundaerBefehleAnmelden(CLI::App& app, std::function<void()>& auftrag);
bool SekundaerWeg(const Decimal& bis, const RasterWahl& wahl);
void SekundaerZaehlenAusgeben(const Decimal& von, const Decimal& bis, bool json);
void SekundaerAuflisten(const Decimal& von, const Decimal& bis, bool json);
// For ranges beyond the primary raster: the raster up to the root of bis (a CliFehler if bis
// lies beyond the square of the largest one), then [a, bis] sieved window by window, fenster
// called with each window's part in ascending order.
void WurzelRasterFuer(const Decimal& von, const Decimal& bis, const std::string& frage);
void FensterweiseSieben(unsigned __int128 a, unsigned __int128 bis,
                        const std::function<void(unsigned __int128, unsigned __int128)>& fenster);
// gaps: how often each difference between primes occurs in a range.
void AbstandBefehlAnmelden(CLI::App& app, std::function<void()>& auftrag);
// count --tuples: the primes and prime constellations of a range, per decade, with estimates.
void TupelZaehlenAusgeben(const std::string& von, const std::string& bis, const RasterWahl& raster, bool json);
// [von, bis] with the raster it needs: the part up to the primary raster's limit goes to
// primaer(a, b) once, the rest to fenster(a, b) window by window, in ascending order.
void BereichSieben(const Decimal& von, const Decimal& bis, const RasterWahl& raster, const std::string& frage,
                   const std::function<void(unsigned __int128, unsigned __int128)>& primaer,
                   const std::function<void(unsigned __int128, unsigned __int128)>& fenster);
// residues: the primes of a range per residue class, and the race of two classes.
void RestklassenBefehlAnmelden(CLI::App& app, std::function<void()>& auftrag);
// gaps-from: the gaps between consecutive primes from a start of any size.
void LueckenAbBefehlAnmelden(CLI::App& app, std::function<void()>& auftrag);
// twins with --method: the search of the twin window by one of its four methods, at any height.
void ZwillingeMitVerfahren(const std::string& von, const std::string& bis, const std::string& methode,
                           const std::string& test, const RasterWahl& raster, bool json);

}  // namespace sw::cli
