// sw::Hyp: the holder of a Hyp number for C++ callers (not part of the flat C API).
//
// A Hyp is a Long array: element 0 the count of words in use, elements 1..count the words,
// lowest first; the upper bound is the highest usable index. The library never resizes a Hyp;
// this holder creates one with a given upper bound (all zero, count 1: the value 0) and grows
// it keeping the content, which is what the callers' room rules need.
//
// Memory layout: two hidden words stand in front of element 0,
//     [-2] the magic word zk::kHypMagie (0x48797021), [-1] the upper bound,
//     [0] the count, [1..] the words.
// In debug builds (NDEBUG undefined) the library reads them for every Hyp it is about to
// lengthen and aborts with the function's name when the result would not fit. Release builds
// keep the same layout but never look at it. Plain arrays without the magic word are not
// checked.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <memory>

namespace sw {

class Hyp {
  public:
    static constexpr int32_t kMagie = 0x48797021;

    // The value 0 with room up to element obergrenze (at least 1).
    explicit Hyp(int32_t obergrenze = 1) { neu(obergrenze); }

    Hyp(const Hyp& o) : Hyp(o.obergrenze()) { std::memcpy(daten(), o.daten(), platzBytes()); }
    Hyp& operator=(const Hyp& o) {
        if (this != &o) {
            neu(o.obergrenze());
            std::memcpy(daten(), o.daten(), platzBytes());
        }
        return *this;
    }
    Hyp(Hyp&&) noexcept = default;
    Hyp& operator=(Hyp&&) noexcept = default;

    // Address of element 0, as the library takes it.
    int32_t* daten() { return speicher_.get() + kVorne; }
    const int32_t* daten() const { return speicher_.get() + kVorne; }
    operator int32_t*() { return daten(); }
    operator const int32_t*() const { return daten(); }

    int32_t& operator[](int32_t i) { return daten()[i]; }
    int32_t operator[](int32_t i) const { return daten()[i]; }

    int32_t obergrenze() const { return speicher_[1]; }
    int32_t anzahl() const { return daten()[0]; }

    // A fresh array of that upper bound: every element 0, then count 1 (the value 0).
    void neu(int32_t obergrenze) {
        obergrenze = std::max<int32_t>(obergrenze, 1);
        speicher_ = std::make_unique<int32_t[]>(size_t(obergrenze) + 1 + kVorne);  // zeroed
        speicher_[0] = kMagie;
        speicher_[1] = obergrenze;
        daten()[0] = 1;
    }

    // New upper bound keeping the content (cut when smaller, new elements 0).
    void setzeObergrenze(int32_t obergrenze) {
        obergrenze = std::max<int32_t>(obergrenze, 1);
        auto neuer = std::make_unique<int32_t[]>(size_t(obergrenze) + 1 + kVorne);
        std::memcpy(neuer.get() + kVorne, daten(),
                    size_t(std::min(obergrenze, this->obergrenze()) + 1) * sizeof(int32_t));
        neuer[0] = kMagie;
        neuer[1] = obergrenze;
        speicher_ = std::move(neuer);
    }

    // Grows to at least that upper bound, keeping the content; never shrinks.
    void mindestens(int32_t obergrenze) {
        if (obergrenze > this->obergrenze()) setzeObergrenze(obergrenze);
    }

  private:
    static constexpr int32_t kVorne = 2;  // hidden words in front of element 0
    size_t platzBytes() const { return (size_t(obergrenze()) + 1) * sizeof(int32_t); }

    std::unique_ptr<int32_t[]> speicher_;
};

}  // namespace sw
