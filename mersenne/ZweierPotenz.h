// ZweierPotenz: the test of the divisor search, 2^p mod q = 1, for many candidates q of one
// exponent p. Below 2^63 it runs in Montgomery form on 64-bit words with 128-bit products,
// several candidates side by side: they share p and so every branch, and the independent
// multiplications keep the multiplier busy while each one waits for its predecessor.
// Larger q go to GMP, so that no candidate is ever left out.
#pragma once

#include <cstddef>
#include <cstdint>

namespace sw {

using Zahl128 = unsigned __int128;

// Largest q of the fast path: below it the Montgomery sums never overflow 128 bits.
constexpr uint64_t ZweierPotenzMontgomeryGrenze = uint64_t(1) << 63;

// teilt[i] = 1 if 2^p mod q[i] == 1, else 0, for odd q[i] > 1, i < anzahl. Any mix of sizes.
void ZweierPotenzModQ(uint32_t p, const Zahl128* q, uint8_t* teilt, size_t anzahl);

// The same for one q, by GMP alone: the independent check of every divisor found.
bool TeiltMersenne(uint32_t p, Zahl128 q);

}  // namespace sw
