// sw-cli lucas P [--method 0..3] [--resume] [--json] | sw-cli lucas P --plan-fft
// The Lucas-Lehmer test of 2^P - 1: the verdict, the Res64 (low 64 bits of the last residue,
// the figure by which runs of different programs are compared), the transform's length and
// largest round-off, and the time. A checkpoint is written every few minutes and at Ctrl-C;
// --resume goes on from it. --plan-fft searches FFTW's best plans for the transform length of P
// (a minute or more at long lengths) and stores them for every later run.
#include <cstdio>
#include <memory>

#include "Befehle.h"
#include "CliUmgebung.h"
#include "frame/Oberflaeche.h"
#include "mersenne/FftwPlaene.h"
#include "mersenne/LucasDwt.h"
#include "mersenne/LucasLauf.h"
#include "mersenne/LucasPruefpunkt.h"

namespace sw::cli {

namespace {

struct LucasFrage {
    std::string exponent;
    std::string methode = "auto";
    bool fortsetzen = false;
    double abstand = 300;
    bool json = false;
    bool planen = false;
};

// Keeps the iteration shown last, for the line that a stop leaves.
struct LucasStand : LucasAnzeige {
    uint32_t i = 0;
    void Stand(uint32_t iteration, const std::string&) override { i = iteration; }
};

const char* methodeName(int32_t m) {
    static const char* const namen[] = {"binomial squares", "add special", "Karatsuba", "transform"};
    return namen[m];
}

void lucas(const LucasFrage& f) {
    const Decimal p = ZahlLesen(f.exponent, "P");
    if (p > Decimal(0xFFFFFFFFu)) throw CliFehler("lucas: P must not exceed 4294967295");
    LucasAuftrag a;
    a.p = uint32_t(std::stoul(p.Text()));
    if (f.planen) {
        if (a.p < 3) throw CliFehler("lucas: P must be at least 3");
        const size_t n = LucasDwtLaenge(a.p);
        const double start = Timer();
        FftwPlanSpeichern(n);
        std::printf("FFT length %zu planned in %.1f s, stored in %s\n", n, Timer() - start,
                    FftwWeisheitDatei().c_str());
        return;
    }
    if (f.methode == "auto") {
        a.methode = a.p >= LucasDwtAb ? LucasMethodeDwt : LucasMethodeKaratsuba;
    } else if (f.methode.size() == 1 && f.methode[0] >= '0' && f.methode[0] <= '3') {
        a.methode = f.methode[0] - '0';
    } else {
        throw CliFehler("lucas: --method must be 0..3, not " + f.methode);
    }
    if (!(f.abstand > 0)) throw CliFehler("lucas: --checkpoint-every must be above 0");
    a.fortsetzen = f.fortsetzen;
    a.pruefpunktSekunden = f.abstand;
    LucasStand stand;
    LucasBefund b;
    try {
        b = LucasLauf(a, &stand);
    } catch (const Abgebrochen&) {
        Terminal().FortschrittBeenden();
        std::fprintf(stderr, "sw-cli: lucas: checkpoint at iteration %u in %s (go on with --resume)\n", stand.i,
                     LucasPruefpunktDatei(a.p).c_str());
        throw;
    }
    Terminal().FortschrittBeenden();
    const char* urteil = b.ergebnis == LucasErgebnis::Prim ? "prime" : "composite";
    if (f.json) {
        JsonObjekt j;
        j.Zahl("exponent", std::to_string(a.p)).Text("verdict", urteil).Text("res64", Res64Text(b.res64));
        j.Zahl("method", std::to_string(b.methode)).Zahl("fft_length", std::to_string(b.fftLaenge));
        j.Kommazahl("max_roundoff", b.groessterFehler).Kommazahl("seconds", b.sekunden);
        j.Zahl("resumed_from", std::to_string(b.fortgesetztAb));
        std::printf("%s\n", j.Ende().c_str());
        return;
    }
    std::printf("2^%u-1 is %s\nRes64: %s\n", a.p, urteil, Res64Text(b.res64).c_str());
    std::printf("method: %d (%s)", b.methode, methodeName(b.methode));
    if (b.fftLaenge > 0) std::printf(", FFT length %zu, largest round-off %.4f", b.fftLaenge, b.groessterFehler);
    if (b.fortgesetztAb > 0) std::printf(", resumed from iteration %u", b.fortgesetztAb);
    std::printf("\nseconds: %.3f\n", b.sekunden);
}

}  // namespace

void LucasBefehlAnmelden(CLI::App& app, std::function<void()>& auftrag) {
    auto f = std::make_shared<LucasFrage>();
    CLI::App* sub = app.add_subcommand("lucas", "Lucas-Lehmer test of the Mersenne number 2^P-1");
    sub->add_option("P", f->exponent, "the exponent, a prime from 3 on")->required();
    sub->add_option("--method", f->methode,
                    "0 binomial squares, 1 add special, 2 Karatsuba, 3 transform (default: 3 from P = 20000 on, "
                    "else 2)");
    sub->add_flag("--resume", f->fortsetzen, "go on from the checkpoint of P in the working folder");
    sub->add_option("--checkpoint-every", f->abstand, "seconds between two checkpoints (default 300)");
    sub->add_flag("--plan-fft", f->planen,
                  "only search FFTW's fastest plans for the transform length of P (a minute or more for long "
                  "lengths) and store them in the working folder, for every later run of that length");
    sub->add_flag("--json", f->json,
                  "print one JSON object: exponent, verdict, res64, method, fft_length, max_roundoff, seconds, "
                  "resumed_from");
    sub->callback([f, &auftrag]() { auftrag = [f]() { lucas(*f); }; });
}

}  // namespace sw::cli
