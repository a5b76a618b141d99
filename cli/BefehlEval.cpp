// sw-cli eval EXPR [--base B] [--full] [--max-bits N] [--json]
// Evaluates a formula with the program's own evaluator (its precedence: ^ % / * + -, each
// from the left) and prints the value as the program shows it, shortened by the display
// settings unless --full, and its number of digits. A refused formula (division by 0, a
// result above --max-bits, a character the evaluator does not know) is one line on stderr.
#include <algorithm>
#include <cstdio>
#include <memory>

#include "Befehle.h"
#include "CliUmgebung.h"
#include "arith/HypText.h"
#include "arith/basHyper.h"
#include "arith/basRechnen.h"

namespace sw::cli {

namespace {

struct EvalFrage {
    std::string formel;
    int32_t basis = 10;
    bool voll = false;
    bool json = false;
    int64_t hoechstBits = HoechstBitsStandard;
};

// Digits of a text in base basis: in bases above 10 other than 16 each digit is a number and
// a blank, in any base up to the largest Long.
size_t ziffernAnzahl(const std::string& text, int32_t basis) {
    if (basis <= 10 || basis == 16) return text.size();
    return size_t(std::count(text.begin(), text.end(), ' '));
}

void auswerten(const EvalFrage& f) {
    if (f.basis < 2) throw CliFehler("eval: --base must be at least 2, not " + std::to_string(f.basis));
    if (f.hoechstBits < 1) throw CliFehler("eval: --max-bits must be at least 1");
    HoechstBits = f.hoechstBits;
    const Hyp wert = Auswerten(f.formel);
    const std::string text = HypInBasis(wert, f.basis);
    const size_t stellen = ziffernAnzahl(text, f.basis);
    if (f.json) {
        JsonObjekt j;
        j.Text("expr", f.formel).Zahl("base", Decimal(f.basis)).Zahl("digits", Decimal(int64_t(stellen)));
        j.Text("value", text);
        std::printf("%s\n", j.Ende().c_str());
        return;
    }
    const std::string anzeige = f.voll ? text : ZiffernAnzeige(text, f.basis == 10);
    std::printf("%s\n%zu digits\n", anzeige.c_str(), stellen);
}

}  // namespace

void EvalBefehlAnmelden(CLI::App& app, std::function<void()>& auftrag) {
    auto f = std::make_shared<EvalFrage>();
    CLI::App* sub = app.add_subcommand("eval", "evaluate a formula such as 2^127-1 or SQR(10^40) MOD 7");
    sub->add_option("EXPR", f->formel, "the formula; ^ % / * + - bind in this order, each from the left")->required();
    sub->add_option("--base", f->basis, "print the value in this base (2 or more; above 10 but for 16 each digit as a number and a blank)");
    sub->add_flag("--full", f->voll, "print every digit instead of the shortened display");
    sub->add_option("--max-bits", f->hoechstBits, "refuse results larger than this many bits");
    sub->add_flag("--json", f->json, "print one JSON object with every digit");
    sub->callback([f, &auftrag]() { auftrag = [f]() { auswerten(*f); }; });
}

}  // namespace sw::cli
