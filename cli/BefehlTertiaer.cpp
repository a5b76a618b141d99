// sw-cli tertiary START LENGTH [--test perrin|rabin|strassen|fermat|bpsw] [--cut C] [--count] [--json]
// The tertiary range: a window of LENGTH numbers from START, at any height (START may be a
// formula such as 10^100 or 2^521-1-10^5), sieved by the primes up to a cut and, with --test,
// the candidates tested. Prints the numbers that stand, each in full, one per line, and a
// summary on stderr (counts, cut, seconds); --count only the count; --json one object.
#include <algorithm>
#include <cstdio>
#include <memory>

#include "Argumente.h"
#include "Befehle.h"
#include "CliUmgebung.h"
#include "frame/Oberflaeche.h"
#include "frame/basZentral.h"
#include "primality/HypMpz.h"
#include "sieve/PrimaerLauf.h"
#include "sieve/RasterTabellen.h"
#include "sieve/basExtrem.h"

namespace sw::cli {

namespace {

// The cut when none is given: deeper sieving than this saves fewer tests than it costs at the
// heights the command is meant for (a BPSW test of a number of 100 digits takes some 20 us,
// one more sieving prime some 30 ns).
constexpr int64_t StandardSchnitt = 10000000;

struct TertiaerFrage {
    std::string start, laenge;
    std::string test;   // "" for the sieve alone
    std::string schnitt;
    bool zaehlen = false;
    bool json = false;
};

struct TestName {
    const char* name;
    int32_t index;
};
constexpr TestName Tests[] = {{"perrin", TertiaerPerrin},   {"rabin", TertiaerRabinZufall},
                              {"strassen", TertiaerStrassen}, {"fermat", TertiaerFermat},
                              {"bpsw", TertiaerBpsw}};

int32_t testLesen(const std::string& text) {
    for (const TestName& t : Tests) {
        if (text == t.name) return t.index;
    }
    throw CliFehler("tertiary: --test must be perrin, rabin, strassen, fermat or bpsw, not " + text);
}

void tertiaer(const TertiaerFrage& f) {
    const int32_t test = f.test.empty() ? -1 : testLesen(f.test);
    const Mpz start = ArgumentLesen(f.start, "START");
    const Decimal laenge = ZahlLesen(f.laenge, "LENGTH");
    if (laenge > Decimal(GrenzeLong)) throw CliFehler("tertiary: LENGTH must not exceed " + Decimal(GrenzeLong).Text());
    const Decimal schnitt = f.schnitt.empty() ? Decimal(StandardSchnitt) : ZahlLesen(f.schnitt, "--cut");
    if (schnitt > Decimal(int64_t(4000000000))) throw CliFehler("tertiary: --cut must not exceed 4000000000");

    const double t0 = Timer();
    // The raster reaches the cut (at least the smallest limit a raster has); the sieve itself
    // stops at the root of the window's top.
    if (!PrimaerLauf(std::max(schnitt, Decimal(1000)), MethodeBereichBeschaffen)) {
        const std::string m = Terminal().LetzteMeldung();
        throw CliFehler(m.empty() ? "tertiary: the raster cannot be built" : "tertiary: " + m);
    }
    const double t1 = Timer();
    TertiaerStart = MpzZuHyp(start);
    TertiaerLaenge = laenge.AlsLong();
    if (!TertiaerSieben()) {
        const std::string m = Terminal().LetzteMeldung();
        throw CliFehler(Abbruch ? "tertiary: stopped" : "tertiary: " + (m.empty() ? "the window cannot be had" : m));
    }
    const double t2 = Timer();
    const int64_t kandidaten = TertiaerZaehlen();
    if (test >= 0) TertiaerTesten(test);
    const double t3 = Timer();
    const int64_t anzahl = TertiaerZaehlen();
    const int64_t schnittWert = TertiaerSchnitt;

    Mpz n;
    AusgabePuffer aus;
    const auto zahl = [&](int64_t d) {
        mpz_add_ui(n, start, uint64_t(d));
        aus.text(ZahlText(n));
    };
    if (f.json) {
        JsonObjekt j;
        j.Zahl("start", ZahlText(start)).Zahl("length", laenge).Zahl("cut", std::to_string(schnittWert));
        j.Text("test", f.test.empty() ? "none" : f.test).Zahl("candidates", std::to_string(kandidaten));
        j.Zahl("count", std::to_string(anzahl)).Kommazahl("raster_seconds", t1 - t0);
        j.Kommazahl("sieve_seconds", t2 - t1).Kommazahl("test_seconds", t3 - t2);
        std::string kopf = j.Ende();
        kopf.pop_back();
        aus.text(kopf);
        if (!f.zaehlen) {
            aus.text(",\"numbers\":[");
            bool erstes = true;
            TertiaerFreieDurchlaufen([&](int64_t d) {
                if (!erstes) aus.text(",");
                erstes = false;
                zahl(d);
            });
            aus.text("]");
        }
        aus.text("}\n");
        return;
    }
    if (f.zaehlen) {
        aus.text(std::to_string(anzahl) + "\n");
    } else {
        TertiaerFreieDurchlaufen([&](int64_t d) {
            zahl(d);
            aus.text("\n");
        });
    }
    aus.leeren();
    std::fflush(stdout);
    std::fprintf(stderr, "%lld %s of %lld candidates, cut %lld; raster %.3f s, sieve %.3f s, test %.3f s\n",
                 static_cast<long long>(anzahl), test >= 0 ? "probable primes" : "candidates",
                 static_cast<long long>(kandidaten), static_cast<long long>(schnittWert), t1 - t0, t2 - t1, t3 - t2);
}

}  // namespace

void TertiaerBefehlAnmelden(CLI::App& app, std::function<void()>& auftrag) {
    auto f = std::make_shared<TertiaerFrage>();
    CLI::App* sub = app.add_subcommand(
        "tertiary", "sieve a window of LENGTH numbers from START at any height and list what stands (with --test: the probable primes)");
    sub->add_option("START", f->start, "the first number, as digits or as a formula such as 10^100")->required();
    sub->add_option("LENGTH", f->laenge, "how many numbers the window holds")->required();
    sub->add_option("--test", f->test, "test the candidates: perrin, rabin, strassen, fermat or bpsw");
    sub->add_option("--cut", f->schnitt,
                    "sieve by the primes up to C (default 10000000, at most 4000000000; above 100000000 "
                    "the question is answered No, so the cut stands; sw-cli --yes answers Yes and stops at 100000000)");
    sub->add_flag("--count", f->zaehlen, "print only the count");
    sub->add_flag("--json", f->json,
                  "print one JSON object: start, length, cut, test, candidates, count, seconds, numbers");
    sub->callback([f, &auftrag]() { auftrag = [f]() { tertiaer(*f); }; });
}

}  // namespace sw::cli
