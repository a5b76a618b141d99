// FftwPlaene: FFTW's plans for the transform of the Lucas-Lehmer engine, and what FFTW learnt
// about them kept across runs. FFTW finds its fastest plans only by trying (FFTW_PATIENT costs
// a minute and more at the long lengths, and pays back a third of every iteration), so that
// search is done once per length on request and its result, FFTW's "wisdom", stored in a file
// in the block folder. A run takes a stored plan at once; without one it measures briefly
// (FFTW_MEASURE), as the longer search would hold it up.
#pragma once

#include <fftw3.h>

#include <cstddef>
#include <string>

namespace sw {

struct FftwPlaene {
    fftw_plan vor = nullptr;    // n reals -> n/2 + 1 complex values
    fftw_plan rueck = nullptr;  // and back, unscaled; destroys the spectrum
    bool gespeichert = false;   // taken from the stored search
};

// ProgrammPfad + "Lucas_FFTW.wis".
std::string FftwWeisheitDatei();

// Reads the file (the first planning does it by itself): true when FFTW took it. A damaged or
// foreign file is ignored and left in place.
bool FftwWeisheitLesen();

// The plans of length n between the two arrays, from the stored search if there is one, else
// by a brief measurement (gruendlich: by the full search, which may take minutes). The arrays
// are overwritten.
// A failure is a Laufzeitfehler (out of memory).
FftwPlaene FftwPlanen(size_t n, double* reell, fftw_complex* spektrum, bool gruendlich = false);
void FftwFreigeben(FftwPlaene& plaene);

// Searches the best plans of length n and stores them with all others in the file (replaced
// atomically); a file that cannot be written is a Laufzeitfehler naming it.
void FftwPlanSpeichern(size_t n);

}  // namespace sw
