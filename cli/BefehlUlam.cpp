// sw-cli ulam --centre C --cells W H [--step S --growth G | --wheel] [--sides X Y] [--smooth L]
//             [--png FILE [--zoom Z]] [--csv FILE] [--limit N | --block FILE] [--json]
// The Ulam spiral of W x H cells around C: the last number, the prime cells and their share,
// after an optional smoothing the primes left on long diagonals; the picture as PNG and the
// cells as CSV. Without a raster of the user's, one just large enough (at most 10^7) is sieved;
// numbers above it are decided by the secondary sieve or BPSW.
#include <algorithm>
#include <cstdio>
#include <memory>

#include "Befehle.h"
#include "CliUmgebung.h"
#include "distribution/PngBild.h"
#include "distribution/Ulam.h"
#include "frame/DateiErsetzen.h"
#include "frame/Oberflaeche.h"
#include "frame/basZentral.h"

namespace sw::cli {

namespace {

struct UlamFrage {
    std::string centre = "1", step = "1", growth = "0";
    std::vector<int32_t> cells{201, 201}, sides{1, 1};
    bool wheel = false;
    int32_t smooth = 1, zoom = 1;
    std::string png, csv;
    RasterWahl raster;
    bool json = false;
};

// A number argument of the spiral. A minus sign is let through as a negative value, so that the
// spiral's own refusal says what is wrong with it; the rest is read as every number argument.
int64_t ganzzahl(const std::string& text, const std::string& was) {
    const bool negativ = !text.empty() && text[0] == '-';
    const Mpz z = ArgumentLesen(negativ ? text.substr(1) : text, was);
    if (mpz_sizeinbase(z.get(), 2) > 63) throw CliFehler("ulam: " + was + " must be below 2^63");
    const int64_t v = int64_t(mpz_get_ui(z.get()));
    return negativ ? -v : v;
}

// The largest number the walk is expected to reach, as the default raster's limit.
Decimal standardGrenze(const UlamFrage& f, const UlamEingabe& e) {
    const double zellen = double(f.cells[0]) * double(f.cells[1]);
    const double schaetzung = e.rad ? double(e.innenZahl) + zellen * 3.75
                                    : double(e.innenZahl) + zellen * (double(e.schritt) + double(e.zuwachs) * zellen / 2);
    return Decimal(int64_t(std::clamp(schaetzung, 1000.0, 1e7)));
}

void schreiben(const std::string& pfad, const std::string& inhalt) {
    if (!DateiErsetzen(pfad, inhalt)) throw CliFehler("ulam: cannot write " + pfad);
}

void ulam(const UlamFrage& f) {
    UlamEingabe e;
    e.innenZahl = ganzzahl(f.centre, "--centre");
    e.schritt = ganzzahl(f.step, "--step");
    e.zuwachs = ganzzahl(f.growth, "--growth");
    e.rad = f.wheel;
    e.seiteX = f.sides[0];
    e.seiteY = f.sides[1];
    e.breite = f.cells[0];
    e.hoehe = f.cells[1];
    UlamEingabePruefen(e);  // before a raster is sieved for input that cannot be drawn
    if (f.smooth < 1) throw CliFehler("ulam: --smooth must be at least 1");
    if (f.zoom < 1 || f.zoom > 64) throw CliFehler("ulam: --zoom must be 1..64");
    RasterBereitstellen(f.raster, standardGrenze(f, e));
    UlamModell m = UlamZeichnen(e, [](double) {
        DoEvents();
        return true;
    });
    const int64_t primzellen = m.UlamPrimzellen;
    const std::string anteil = UlamAnteilText(m);
    UlamGlaetten(m, f.smooth);
    const int64_t verblieben = std::count(m.farbe.begin(), m.farbe.end(), UlamFarbe::Blau) +
                               std::count(m.farbe.begin(), m.farbe.end(), UlamFarbe::Schwarz);
    if (!f.png.empty()) schreiben(f.png, PngKodieren(m.breite * f.zoom, m.hoehe * f.zoom, UlamPixel(m, f.zoom)));
    if (!f.csv.empty()) schreiben(f.csv, UlamCsv(m));
    Terminal().FortschrittBeenden();
    if (f.json) {
        JsonObjekt j;
        j.Zahl("centre", std::to_string(e.innenZahl)).Zahl("width", std::to_string(m.breite));
        j.Zahl("height", std::to_string(m.hoehe)).Zahl("cells", std::to_string(m.UlamZellen));
        j.Zahl("last", std::to_string(m.letzteZahl)).Zahl("prime_cells", std::to_string(primzellen));
        j.Text("share", anteil).Zahl("smooth", std::to_string(f.smooth)).Zahl("kept", std::to_string(verblieben));
        j.Zahl("limit", PrimaerGrenze);
        std::printf("%s\n", j.Ende().c_str());
        return;
    }
    std::printf("last: %llu, cells: %lld, prime cells: %lld (%s)\n", (unsigned long long)m.letzteZahl,
                (long long)m.UlamZellen, (long long)primzellen, anteil.c_str());
    if (f.smooth > 1) std::printf("kept on diagonals of %d: %lld\n", f.smooth, (long long)verblieben);
}

}  // namespace

void UlamBefehlAnmelden(CLI::App& app, std::function<void()>& auftrag) {
    auto f = std::make_shared<UlamFrage>();
    CLI::App* sub = app.add_subcommand("ulam", "the Ulam spiral: prime cells, share, picture");
    sub->add_option("--centre", f->centre, "number of the centre cell (default 1)");
    sub->add_option("--cells", f->cells, "width and height in cells (default 201 201)")->expected(2);
    sub->add_option("--step", f->step, "difference of neighbouring numbers (default 1)");
    sub->add_option("--growth", f->growth, "added to the difference after each cell (default 0)");
    sub->add_flag("--wheel", f->wheel, "walk only the numbers prime to 30");
    sub->add_option("--sides", f->sides, "first horizontal and vertical side (default 1 1)")->expected(2);
    sub->add_option("--smooth", f->smooth, "keep only primes on diagonal runs of this length");
    sub->add_option("--png", f->png, "write the picture to this PNG file");
    sub->add_option("--zoom", f->zoom, "pixels per cell in the PNG (default 1)");
    sub->add_option("--csv", f->csv, "write every cell (x;y;number;colour) to this file");
    sub->add_option("--limit", f->raster.limit, "sieve the raster up to this limit");
    sub->add_option("--block", f->raster.block, "load the raster from this block file");
    sub->add_flag("--json", f->json, "print one JSON object");
    sub->callback([f, &auftrag]() { auftrag = [f]() { ulam(*f); }; });
}

}  // namespace sw::cli
