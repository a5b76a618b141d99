#include "primality/EcmSuche.h"

#include <ecm.h>

#include <algorithm>
#include <atomic>
#include <thread>
#include <vector>

#include "primality/HypMpz.h"

namespace sw {

namespace {

constexpr EcmStufe kLeiter[] = {
    {2e3, 25, 15},      {11e3, 90, 20},     {5e4, 300, 25},     {25e4, 700, 30},
    {1e6, 1800, 35},    {3e6, 5100, 40},    {11e6, 10600, 45},  {43e6, 19300, 50},
    {11e7, 49000, 55},  {26e7, 124000, 60}, {85e7, 210000, 65},
};

constexpr double kBatchBisB1 = 3e6;

// splitmix64: neighbouring seeds give unrelated curve parameters.
uint64_t mischen(uint64_t x) {
    x += 0x9E3779B97F4A7C15ull;
    x = (x ^ (x >> 30)) * 0xBF58476D1CE4E5B9ull;
    x = (x ^ (x >> 27)) * 0x94D049BB133111EBull;
    return x ^ (x >> 31);
}

// The library's stop hook takes no argument; the running curve's question waits here, one
// per thread. Helper threads never ask the caller's question (it may touch the event loop);
// they read the flag the calling thread sets once its question said stop.
thread_local const std::function<bool()>* laufenderStopp = nullptr;
std::atomic<bool> helferStopp{false};

int stoppHaken() {
    if (!laufenderStopp) return helferStopp.load(std::memory_order_relaxed) ? 1 : 0;
    if (!(*laufenderStopp)()) return 0;
    helferStopp.store(true, std::memory_order_relaxed);
    return 1;
}

int32_t kerne() {
    static const int32_t anzahl = int32_t(std::clamp(std::thread::hardware_concurrency(), 1u, 16u));
    return anzahl;
}

// The parameter block of one curve: fresh defaults, the repeatable random source, no output.
class EcmParameter {
  public:
    EcmParameter(double b1, uint64_t saat) {
        ecm_init(p_);
        // The curve is chosen here, not by the library's random source (which it seeds from
        // the clock): the same seed gives the same curve, so a run is repeatable. Up to a few
        // million, the batch curves (a = 4 i^2 - 2) are the fastest; beyond, the product of
        // all primes up to B1 they need grows large, and Suyama's curves take over.
        const uint64_t h = mischen(saat);
        if (b1 <= kBatchBisB1) {
            p_->param = ECM_PARAM_BATCH_SQUARE;
            mpz_set_ui(p_->sigma, 2 + static_cast<unsigned long>(h % 0xFFFFFFFDull));
        } else {
            p_->param = ECM_PARAM_SUYAMA;
            mpz_set_ui(p_->sigma, 6 + static_cast<unsigned long>(h % 0xFFFFFFF0ull));
        }
        p_->stop_asap = stoppHaken;
        // The library's special arithmetic for factors of 2^n +- 1 keeps its buffers in static
        // variables, which two curves running side by side would share; the general
        // arithmetic has no such state.
        // Batch curves accept only Montgomery's multiplication (the library refuses any other
        // with a message and no curve); it is general arithmetic too.
        p_->repr = p_->param == ECM_PARAM_BATCH_SQUARE ? ECM_MOD_MODMULN : ECM_MOD_NOBASE2;
        p_->nobase2step2 = 1;
    }
    ~EcmParameter() { ecm_clear(p_); }
    EcmParameter(const EcmParameter&) = delete;
    EcmParameter& operator=(const EcmParameter&) = delete;
    ecm_params_ptr get() { return p_; }

  private:
    ecm_params p_;
};

}  // namespace

int32_t EcmStufenAnzahl() { return int32_t(sizeof kLeiter / sizeof kLeiter[0]); }
const EcmStufe& EcmStufeNr(int32_t i) { return kLeiter[i]; }

bool EcmKurve(mpz_ptr faktor, mpz_srcptr n, double b1, uint64_t saat, const std::function<bool()>& stopp) {
    EcmParameter p(b1, saat);
    const std::function<bool()>* vorher = laufenderStopp;
    laufenderStopp = stopp ? &stopp : nullptr;
    Mpz zahl;
    mpz_set(zahl, n);  // the library takes a non-const number
    const int ergebnis = ecm_factor(faktor, zahl, b1, p.get());
    laufenderStopp = vorher;
    // The curve may also find all factors at once (faktor = n), which splits nothing.
    return ergebnis > 0 && mpz_cmp_ui(faktor, 1) > 0 && mpz_cmp(faktor, n) < 0;
}

EcmErgebnis EcmKurvenParallel(mpz_ptr faktor, mpz_srcptr n, double b1, uint64_t saat, int32_t anzahl,
                          const std::function<bool()>& stopp) {
    const int32_t breite = std::min(anzahl, kerne());
    if (breite <= 1) return {1, EcmKurve(faktor, n, b1, saat, stopp)};
    helferStopp.store(false);
    std::vector<Mpz> faktoren(static_cast<size_t>(breite));
    std::vector<char> treffer(size_t(breite), 0);
    std::vector<std::thread> helfer;
    const std::function<bool()> nieFragen;  // empty: helpers read the flag instead
    for (int32_t i = 1; i < breite; ++i) {
        helfer.emplace_back([&, i] {
            treffer[size_t(i)] = EcmKurve(faktoren[size_t(i)], n, b1, saat + uint64_t(i), nieFragen);
        });
    }
    treffer[0] = EcmKurve(faktoren[0], n, b1, saat, stopp);
    for (std::thread& t : helfer) t.join();
    for (int32_t i = 0; i < breite; ++i) {
        if (treffer[size_t(i)]) {
            mpz_set(faktor, faktoren[size_t(i)]);
            return {i + 1, true};
        }
    }
    return {breite, false};
}

}  // namespace sw
