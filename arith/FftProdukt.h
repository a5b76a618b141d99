// FftProdukt: the product of two Hyp numbers by a floating complex FFT over their bytes, the
// method the byte arrays of basRechnen were made for (Int2FFTArr, BrevOrder, FFTArr2Int). It is
// shown beside the exact product to make the method's round-off visible; the program's real
// multiplications do not depend on it.
#pragma once

#include <cstdint>

#include "zahlkern/Hyp.h"

namespace sw {

struct FftErgebnis {
    Hyp produkt;
    double rundungsfehler = 0;  // the largest distance of a convolution value from its integer
    int32_t laenge = 0;         // points of the transform
};

// The largest transform: 2^22 points, products of up to 2 MB (about 5 million digits). Above
// it the byte convolution needs more precision than a double carries safely.
inline constexpr int32_t FftHoechstPunkte = 1 << 22;

// a * b by the FFT; more points than FftHoechstPunkte is Laufzeitfehler 6.
FftErgebnis FftProdukt(const Hyp& a, const Hyp& b);

}  // namespace sw
