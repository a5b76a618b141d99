// sw-cli divisors --from P --to P2 --k KZIEL [--db DIR] [--json]
// The divisor search of the Mersenne numbers 2^p - 1 for the prime p in [P, P2], every k up
// to KZIEL, into the Mersenne database of the working folder (or of DIR). Exponents already
// settled or searched that far are passed over, so the same command goes on where an earlier
// one stopped. Ctrl-C stops at the next yield; what was searched is kept.
#include <unistd.h>

#include <cstdio>
#include <memory>

#include "Befehle.h"
#include "CliUmgebung.h"
#include "frame/Fortschritt.h"
#include "frame/Oberflaeche.h"
#include "mersenne/TeilerLauf.h"
#include "mersenne/basDB.h"
#include "sieve/RasterTabellen.h"

namespace sw::cli {

namespace {

struct TeilerFrage {
    std::string von, bis, kZiel, ordner;
    bool json = false;
};

// Divisors go to stdout as they come; on a terminal, stderr shows the exponent reached and
// the remaining time by the share of the range passed.
class TeilerAusgabe : public TeilerLaufAnzeige {
public:
    TeilerAusgabe(uint32_t von, uint32_t bis, bool json) : von_(von), bis_(bis), json_(json) {}
    void Exponent(uint32_t p) override { zeigen(p); }
    void Stand(uint32_t p, uint64_t) override { zeigen(p); }
    void Teiler(uint32_t p, const std::string& q, bool neu) override {
        if (!neu || json_) return;
        Terminal().FortschrittBeenden();
        std::printf("%s divides 2^%u-1\n", q.c_str(), p);
        std::fflush(stdout);
    }

private:
    void zeigen(uint32_t p) {
        static const bool terminal = ::isatty(STDERR_FILENO) == 1;
        if (!terminal || bis_ <= von_) return;
        const double jetzt = Timer();
        if (jetzt - gezeigt_ < 1.0) return;
        gezeigt_ = jetzt;
        std::fprintf(stderr, "\r\033[Ksw-cli: p = %u  %s", p, ZeitText(start_, p, von_, bis_).c_str());
        std::fflush(stderr);
    }
    uint32_t von_, bis_;
    bool json_;
    double start_ = Timer(), gezeigt_ = Timer();
};

uint32_t exponentLesen(const std::string& text, const char* name) {
    const Decimal d = ZahlLesen(text, name);
    if (d > Decimal(GrenzeLong)) throw CliFehler(std::string("divisors: ") + name + " must not exceed 2000000000");
    return uint32_t(d.AlsInt64());
}

void divisors(const TeilerFrage& f) {
    TeilerLaufAuftrag a;
    a.von = exponentLesen(f.von, "--from");
    a.bis = exponentLesen(f.bis, "--to");
    if (a.von > a.bis) throw CliFehler("divisors: --from " + f.von + " is greater than --to " + f.bis);
    const Decimal k = ZahlLesen(f.kZiel, "--k");
    if (k < Decimal(1) || k > Decimal(TeilerKZielMax))
        throw CliFehler("divisors: --k must lie between 1 and " + std::to_string(TeilerKZielMax));
    a.KZiel = uint64_t(k.AlsInt64());
    DbOrtWaehlen(f.ordner, "divisors", true);
    TeilerAusgabe ausgabe(a.von, a.bis, f.json);
    TeilerLaufBefund b;
    try {
        b = TeilerLauf(a, &ausgabe);
    } catch (const Abgebrochen&) {
        Terminal().FortschrittBeenden();
        std::fprintf(stderr, "sw-cli: divisors: stopped; the limits reached are stored, the same command goes on\n");
        throw;
    }
    Terminal().FortschrittBeenden();
    if (f.json) {
        JsonObjekt j;
        j.Zahl("from", std::to_string(a.von)).Zahl("to", std::to_string(a.bis)).Zahl("k", std::to_string(a.KZiel));
        j.Zahl("exponents", std::to_string(b.exponenten)).Zahl("searched", std::to_string(b.gesucht));
        j.Zahl("found", std::to_string(b.gefunden)).Kommazahl("seconds", b.sekunden);
        std::printf("%s\n", j.Ende().c_str());
        return;
    }
    std::printf("%llu prime exponents, %llu searched up to k = %llu, %llu divisors found, %.3f s\n",
                static_cast<unsigned long long>(b.exponenten), static_cast<unsigned long long>(b.gesucht),
                static_cast<unsigned long long>(a.KZiel), static_cast<unsigned long long>(b.gefunden), b.sekunden);
}

}  // namespace

void TeilerBefehlAnmelden(CLI::App& app, std::function<void()>& auftrag) {
    auto f = std::make_shared<TeilerFrage>();
    CLI::App* sub = app.add_subcommand("divisors", "search divisors 2kp+1 of the Mersenne numbers 2^p-1");
    sub->add_option("--from", f->von, "the first exponent")->required();
    sub->add_option("--to", f->bis, "the last exponent")->required();
    sub->add_option("--k", f->kZiel, "try every k up to this (q = 2kp+1)")->required();
    sub->add_option("--db", f->ordner, "folder of the Mersenne database (default: the working folder)");
    sub->add_flag("--json", f->json, "print one JSON object: from, to, k, exponents, searched, found, seconds");
    sub->callback([f, &auftrag]() { auftrag = [f]() { divisors(*f); }; });
}

}  // namespace sw::cli
