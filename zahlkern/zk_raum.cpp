// The debug room check. sw::Hyp (zahlkern/Hyp.h) keeps two hidden words in front of element
// 0: a magic word and the upper bound. A library function that is about to make a Hyp longer
// asks here whether the new count still fits, and stops the program with its own name when
// it does not; writing on would corrupt the heap silently and surface far away.
// Arrays that were not made by sw::Hyp carry no magic word and are not checked.
#ifndef NDEBUG

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "zahlkern/Hyp.h"
#include "zahlkern/zk_hyp.h"

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/asan_interface.h>
#endif

namespace zk {

void raum_pruefen(const Long* h, int64_t hoechsterIndex, const char* funktion) {
    const char* kopf = reinterpret_cast<const char*>(h) - 2 * sizeof(Long);
#if defined(__SANITIZE_ADDRESS__)
    // Under the address sanitizer the words in front of a plain array are a red zone: such an
    // array is no sw::Hyp, and reading there would be reported as an error of its own.
    if (__asan_region_is_poisoned(const_cast<char*>(kopf), 2 * sizeof(Long)) != nullptr) return;
#endif
    Long verborgen[2];
    std::memcpy(verborgen, kopf, sizeof verborgen);
    if (verborgen[0] != sw::Hyp::kMagie) return;
    if (hoechsterIndex > verborgen[1]) {
        std::fprintf(stderr,
                     "zahlkern: %s braucht Platz bis Element %lld, der Hyp reicht nur bis %d\n",
                     funktion, static_cast<long long>(hoechsterIndex), verborgen[1]);
        std::abort();
    }
}

}  // namespace zk

#endif  // NDEBUG
