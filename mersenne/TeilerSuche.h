// TeilerSuche: the search for a divisor of 2^p - 1 among q = 2kp + 1, k from one limit to
// another. Only k whose q is 1 or 7 mod 8 and prime to 3 can give a divisor: four residue
// classes of k mod 12. Each class is sieved over k by the small primes in segments (a step of
// the class adds 24p to q, so the multiples of a prime r fall on every r-th position), and the
// survivors are tested by ZweierPotenzModQ. All four classes advance together segment by
// segment, and the smallest k of a segment that divides wins: the divisor found is the
// smallest of the exponent, whatever class it lies in.
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "mersenne/ZweierPotenz.h"

namespace sw {

enum class TeilerErgebnis { Keiner, Gefunden, Abgebrochen };

struct TeilerFund {
    TeilerErgebnis ergebnis = TeilerErgebnis::Keiner;
    uint64_t k = 0;  // of the divisor found; after a stop, the limit reached (all k up to it tried)
    Zahl128 q = 0;   // 2kp + 1 of the divisor
};

// Called between two segments with the limit reached so far; false stops the search.
using TeilerWeiter = std::function<bool(uint64_t k)>;

class TeilerSuche {
    // Four classes for every p but 3, where no q is divisible by 3 and six remain.
    static constexpr int kKlassenMax = 6;

public:
    // p an odd prime below 2^31. Without p, Exponent must come before the first search.
    explicit TeilerSuche(uint32_t p);
    TeilerSuche() = default;

    // Turns the search to another exponent and keeps the buffers: a walk over thousands of
    // exponents would otherwise give a few hundred kilobytes back to the system and fault
    // them in again for each one.
    void Exponent(uint32_t p);

    // Tries every k with KGeprueft < k <= KZiel, and no other. Stops at the first segment with
    // a divisor and gives its smallest one. weiter may be empty.
    TeilerFund TeilerSuchen(uint64_t KGeprueft, uint64_t KZiel, const TeilerWeiter& weiter = {});

    // Candidates that survived the sieve and went to the test, over the object's life.
    uint64_t Getestet() const { return getestet_; }

private:
    // One row of the sieve: the prime r and, per class, the j mod r at which r divides
    // q = 2(KRest + 12 j)p + 1.
    struct KleinPrim {
        uint32_t r;
        uint32_t start[kKlassenMax];
    };
    void KleinPrimTabelle(uint64_t breite);
    // Sieves class klasse over j in [jVon, jBis) and appends the surviving k.
    void KlasseWeiter(int klasse, uint64_t jVon, uint64_t jBis);

    uint32_t p_ = 0;
    Zahl128 Schritt2P = 0;            // q = 1 + k * Schritt2P
    int klassen_ = 0;
    uint32_t KRest[kKlassenMax];      // the residues of k mod 12 that can give a divisor
    std::vector<KleinPrim> tabelle_;  // the first KleinPrimAnzahl rows are in use
    size_t KleinPrimAnzahl = 0;
    std::vector<uint64_t> ausnahmen_; // k whose q is itself a sieving prime: never struck
    std::vector<uint8_t> sieb_;
    std::vector<uint64_t> ueberlebende_;
    std::vector<Zahl128> kandidaten_;
    std::vector<uint8_t> teilt_;
    uint64_t getestet_ = 0;
};

}  // namespace sw
