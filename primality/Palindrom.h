// Palindrom: the logic of the palindrome game and of its growth trees. In the game a number
// grows digit by digit, at its right end, its left end or both ends at once (then it grows
// as a palindrome around its first digit), and only digits that keep it prime are offered.
// The trees follow every such chain to its end: every number that can be reached this way,
// counted per length. Nothing here knows a window; the window and sw-cli bind to it.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace sw {

// Where a new digit goes.
enum class Anordnung : int32_t { Rechts = 0, Links = 1, Beide = 2 };

// How the candidates of one check were judged: by the primary raster, by BPSW, or by one
// Miller-Rabin round (the user's choice above the raster).
enum class PalindromPruefArt { Primaer, Bpsw, MillerRabin };

// The number that ziffer (1..9) makes of zahl (decimal digits, possibly empty). With both ends
// an empty zahl gives the digit alone. A digit outside 1..9 or a zahl with anything but digits
// is a Laufzeitfehler 5.
std::string PalindromKandidat(const std::string& zahl, int32_t ziffer, Anordnung a);

// Takes digits back by the arrangement set now, whatever the digit was added with: right the
// last digit, left the first, both the first and the last (a single digit goes whole). The
// result is the digit taken (the first one for both ends); "" and zahl untouched if it is empty.
std::string PalindromZurueck(std::string& zahl, Anordnung a);

struct ZiffernUrteil {
    std::array<bool, 10> frei{};  // frei[d]: digit d keeps the number prime (d = 1..9)
    PalindromPruefArt art = PalindromPruefArt::Bpsw;
};

// Judges the nine candidates of zahl. A candidate with fewer digits than PrimaerGrenze is read
// in the raster (when a true raster stands); longer ones, which the raster cannot answer, go
// to BPSW, or with millerRabin to one round of MillerRabin (after the primes below 100).
// All nine share one way of judging, since a candidate's length does not depend on its digit.
ZiffernUrteil ZiffernPruefen(const std::string& zahl, Anordnung a, bool millerRabin);

struct PalindromBaum {
    std::vector<uint64_t> jeLaenge;  // jeLaenge[k]: members with k digits (index 0 unused)
    uint64_t anzahl = 0;
    std::string groesstes;  // the largest member, "" if none
    bool vollstaendig = true;  // false: stopped before the tree ended
};

// Called every few hundred tests with the length being grown and the members found so far;
// false stops the walk.
using BaumFortschritt = std::function<bool(int32_t laenge, uint64_t anzahl)>;

// The whole tree of arrangement a: every number reachable from the empty start by digits
// 1..9 that keep it prime, with at most maxStellen digits (0: no bound; every tree ends by
// itself, the left one the latest, at 24 digits). Each member is judged by BPSW, which is a
// proof below 2^64 and above it a probable prime no counterexample is known for. maxStellen
// below 0 is a Laufzeitfehler 5.
PalindromBaum PalindromBaumWachsen(Anordnung a, int32_t maxStellen, const BaumFortschritt& fortschritt);

}  // namespace sw
