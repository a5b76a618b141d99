#include "mersenne/FftwPlaene.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <memory>
#include <mutex>

#include "frame/DateiErsetzen.h"
#include "frame/Laufzeitfehler.h"
#include "frame/Texte.h"
#include "frame/basZentral.h"

namespace sw {

namespace {

constexpr int kDateiFehler = 75;

// FFTW's planner and its wisdom are global state that must not be used by two threads at
// once; executing a plan may.
std::mutex planerSperre;
bool geladen = false;

// Called under the lock. FFTW reads the whole text or refuses it; after a refusal whatever it
// half read is forgotten with all it knew: the plans in use stay valid, and new ones are
// measured again.
bool lesen() {
    geladen = true;
    std::ifstream f(FftwWeisheitDatei(), std::ios::binary);
    if (!f) return false;
    const std::string text((std::istreambuf_iterator<char>(f)), std::istreambuf_iterator<char>());
    if (fftw_import_wisdom_from_string(text.c_str())) return true;
    fftw_forget_wisdom();
    return false;
}

struct FftwFrei {
    void operator()(void* p) const { fftw_free(p); }
};

}  // namespace

std::string FftwWeisheitDatei() { return ProgrammPfad + "Lucas_FFTW.wis"; }

bool FftwWeisheitLesen() {
    std::lock_guard<std::mutex> sperre(planerSperre);
    return lesen();
}

FftwPlaene FftwPlanen(size_t n, double* reell, fftw_complex* spektrum, bool gruendlich) {
    std::lock_guard<std::mutex> sperre(planerSperre);
    if (!geladen) lesen();
    const int laenge = int(n);
    FftwPlaene p;
    // FFTW_WISDOM_ONLY gives a plan only when the file holds one of at least this rigour, and
    // then at once.
    p.vor = fftw_plan_dft_r2c_1d(laenge, reell, spektrum, FFTW_PATIENT | FFTW_WISDOM_ONLY);
    p.rueck = fftw_plan_dft_c2r_1d(laenge, spektrum, reell, FFTW_PATIENT | FFTW_WISDOM_ONLY);
    p.gespeichert = p.vor && p.rueck;
    if (!p.gespeichert) {
        const unsigned art = gruendlich ? FFTW_PATIENT : FFTW_MEASURE;
        if (!p.vor) p.vor = fftw_plan_dft_r2c_1d(laenge, reell, spektrum, art);
        if (!p.rueck) p.rueck = fftw_plan_dft_c2r_1d(laenge, spektrum, reell, art);
    }
    if (!p.vor || !p.rueck) {
        if (p.vor) fftw_destroy_plan(p.vor);
        if (p.rueck) fftw_destroy_plan(p.rueck);
        throw Laufzeitfehler(FehlerKeinSpeicher);
    }
    return p;
}

void FftwFreigeben(FftwPlaene& plaene) {
    std::lock_guard<std::mutex> sperre(planerSperre);
    if (plaene.vor) fftw_destroy_plan(plaene.vor);
    if (plaene.rueck) fftw_destroy_plan(plaene.rueck);
    plaene = {};
}

void FftwPlanSpeichern(size_t n) {
    // The same arrays, alignment and direction as a run uses them, so the run finds the plan.
    std::unique_ptr<double, FftwFrei> reell(fftw_alloc_real(n));
    std::unique_ptr<fftw_complex, FftwFrei> spektrum(fftw_alloc_complex(n / 2 + 1));
    if (!reell || !spektrum) throw Laufzeitfehler(FehlerKeinSpeicher);
    FftwPlaene p = FftwPlanen(n, reell.get(), spektrum.get(), true);
    FftwFreigeben(p);
    std::lock_guard<std::mutex> sperre(planerSperre);
    // FFTW hands the text over from malloc.
    std::unique_ptr<char, decltype(&std::free)> text(fftw_export_wisdom_to_string(), &std::free);
    if (!text || !DateiErsetzen(FftwWeisheitDatei(), text.get())) {
        throw Laufzeitfehler(kDateiFehler, TextP1(1406, FftwWeisheitDatei()));
    }
}

}  // namespace sw
