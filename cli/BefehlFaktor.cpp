// sw-cli factor N [--json]: the prime factors of a number of any size. N is a formula
// (2^128+1, 10^30+57, a plain number). Trial division by a raster of the primes up to a
// million (or the one given by --limit/--block), then rho and the elliptic-curve method.
// Powers are grouped (2^21x5^21) and a factor that is only a probable prime carries "?".
// Ctrl-C stops the search and prints what was found, the parts not yet split in brackets.
#include <cstdio>
#include <memory>

#include "Befehle.h"
#include "Argumente.h"
#include "CliUmgebung.h"
#include "arith/HypText.h"
#include "frame/basZentral.h"
#include "primality/Faktorisierung.h"

namespace sw::cli {

namespace {

struct FaktorFrage {
    std::string zahl;
    RasterWahl raster;
    bool json = false;
};

// Trial division up to here; rho and the curves find larger primes faster.
const Decimal kProbeGrenze = Decimal(1000000);

}  // namespace

std::string JsonFaktoren(const Zerlegung& z) {
    std::string liste;
    for (const Primfaktor& f : z.faktoren) {
        JsonObjekt j;
        j.Zahl("factor", Hyp2Text(f.wert)).Zahl("exponent", Decimal(f.exponent));
        j.Wahr("prime", f.art != FaktorArt::Zusammengesetzt).Wahr("proven", f.art == FaktorArt::Bewiesen);
        liste += (liste.empty() ? "" : ",") + j.Ende();
    }
    return "[" + liste + "]";
}

namespace {

void zerlegen(const FaktorFrage& f) {
    const Hyp n = MpzZuHyp(ArgumentLesen(f.zahl, "N"));
    const std::string ziffern = Hyp2Text(n);
    if (ziffern == "0") throw CliFehler("factor: 0 has no prime factorisation");
    RasterBereitstellen(f.raster, kProbeGrenze);

    FaktorOptionen opt;
    opt.probeGrenze = uint64_t(PrimaerGrenze.AlsInt64());
    const Zerlegung z = Zerlegen(n, opt);
    Terminal().FortschrittBeenden();
    if (f.json) {
        JsonObjekt j;
        j.Zahl("n", ziffern).Roh("factors", JsonFaktoren(z));
        j.Wahr("complete", z.Vollstaendig()).Wahr("proven", z.Bewiesen()).Wahr("stopped", z.abgebrochen);
        std::printf("%s\n", j.Ende().c_str());
    } else {
        const std::string text = ZerlegungText(z);
        std::printf("%s = %s\n", ziffern.c_str(), text.empty() ? "1" : text.c_str());
    }
    std::fflush(stdout);
    if (z.abgebrochen) throw Abgebrochen{};
    if (!z.Vollstaendig()) throw CliFehler("factor: the parts in brackets resisted every ECM level; they are composite");
}

}  // namespace

void FaktorBefehlAnmelden(CLI::App& app, std::function<void()>& auftrag) {
    auto f = std::make_shared<FaktorFrage>();
    CLI::App* sub = app.add_subcommand("factor", "the prime factors of N, a number or formula of any size");
    sub->add_option("N", f->zahl, "a number or a formula such as 2^128+1")->required();
    sub->add_option("--limit", f->raster.limit, "trial division by the primes up to this limit");
    sub->add_option("--block", f->raster.block, "load the raster of trial division from this block file");
    sub->add_flag("--json", f->json, "print one JSON object: factors with exponent and proven flag");
    sub->callback([f, &auftrag]() { auftrag = [f]() { zerlegen(*f); }; });
}

}  // namespace sw::cli
