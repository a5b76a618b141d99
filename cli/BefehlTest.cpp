// sw-cli test N [--method 0..6|bpsw] [--limit L] [--json]
// Tests one number of any size, given as digits or as a formula (2^9689-1), by one method of
// the prime test window: trial division up to L first (100,000 unless given), then the
// method. Prints the verdict line and whether it is proven or only probable.
#include <cstdio>
#include <memory>

#include "Argumente.h"
#include "Befehle.h"
#include "CliUmgebung.h"
#include "arith/HypText.h"
#include "primality/PrimzahlTest.h"

namespace sw::cli {

namespace {

struct TestFrage {
    std::string zahl;
    std::string methode = "bpsw";
    std::string grenze = "100000";
    bool json = false;
};

// The lines go nowhere on the way; only the verdict is printed.
struct StilleAnzeige : PrimTestAnzeige {
    void Hinweis(const std::string&) override {}
};

int32_t methodeLesen(const std::string& text) {
    if (text == "bpsw" || text == "BPSW") return MethodeBpsw;
    if (text.size() == 1 && text[0] >= '0' && text[0] < char('0' + PrimTestMethodenAnzahl)) return text[0] - '0';
    throw CliFehler("test: --method must be 0..6 or bpsw, not " + text);
}

const char* urteilWort(const PrimTestErgebnis& e) {
    switch (e.urteil) {
        case PrimUrteil::Prim: return "prime";
        case PrimUrteil::WahrscheinlichPrim: return "probable prime";
        case PrimUrteil::Zusammengesetzt: return "composite";
        case PrimUrteil::Keines: return "neither prime nor composite";
        default: return "stopped";
    }
}

void testen(const TestFrage& f) {
    const int32_t methode = methodeLesen(f.methode);
    const Decimal grenze = ZahlLesen(f.grenze, "--limit");
    if (grenze > Decimal(0x7FFFFFFF)) throw CliFehler("test: --limit must not exceed 2147483647");
    // Read by the reader of every sw-cli argument, so that its refusals hold here too.
    const std::string eingabe = ZahlText(ArgumentLesen(f.zahl, "N"));
    StilleAnzeige anzeige;
    const PrimTestErgebnis e = PrimzahlTestLauf(eingabe, grenze.Text(), methode, PrimTestName(methode), anzeige);
    const std::string meldung = Terminal().LetzteMeldung();
    if (!meldung.empty()) throw CliFehler("test: " + meldung);
    if (f.json) {
        JsonObjekt j;
        j.Text("number", ZiffernAnzeige(eingabe, false));
        j.Text("method", PrimTestName(methode)).Text("verdict", urteilWort(e)).Wahr("proven", e.bewiesen);
        std::printf("%s\n", j.Ende().c_str());
        return;
    }
    const bool prim = e.urteil == PrimUrteil::Prim || e.urteil == PrimUrteil::WahrscheinlichPrim;
    std::printf("%s\n%s%s\n", e.text.c_str(), urteilWort(e), prim ? (e.bewiesen ? ", proven" : ", not proven") : "");
}

}  // namespace

void TestBefehlAnmelden(CLI::App& app, std::function<void()>& auftrag) {
    auto f = std::make_shared<TestFrage>();
    CLI::App* sub = app.add_subcommand("test", "test one number of any size for primality");
    sub->add_option("N", f->zahl, "the number, as digits or as a formula such as 2^127-1")->required();
    sub->add_option("--method", f->methode,
                    "0 trial division from the root, 1 Miller-Rabin, 2 Solovay-Strassen, 3 Perrin, 4 Fermat, "
                    "5 Fermat's search, 6 or bpsw Baillie-PSW (default)");
    sub->add_option("--limit", f->grenze, "trial division by the primes up to L first (default 100000)");
    sub->add_flag("--json", f->json, "print one JSON object: number, method, verdict, proven");
    sub->callback([f, &auftrag]() { auftrag = [f]() { testen(*f); }; });
}

}  // namespace sw::cli
