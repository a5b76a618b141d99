// sw-cli collatz-tree I [--m M] [--json]: every start value whose 3n+1 sequence reaches 1 in
// exactly I steps (a multiplication and a halving one step each), with --m only those with
// exactly M multiplications. The values are made backwards from 1, never tested forward, so
// they may be of any size; they are printed in ascending order. Ctrl-C prints what was found.
#include <algorithm>
#include <cstdio>
#include <memory>
#include <vector>

#include "Befehle.h"
#include "CliUmgebung.h"
#include "arith/HypText.h"
#include "collatz/ExtremSuche.h"
#include "frame/Oberflaeche.h"
#include "frame/basZentral.h"
#include "zahlkern/zahlkern.h"

namespace sw::cli {

namespace {

struct BaumFrage {
    int32_t schritte = 0;
    int32_t mult = -1;
    bool json = false;
};

class Sammler final : public ExtremZiel {
  public:
    void Treffer(const Hyp& wert, int32_t, const std::string&) override { werte.push_back(wert); }
    // A yield costs more than a node; every 65536 nodes keeps Ctrl-C prompt.
    bool Gestoppt() override {
        if (++knoten_ % 65536 == 0) DoEvents();
        return Abbruch;
    }
    std::vector<Hyp> werte;

  private:
    uint64_t knoten_ = 0;
};

void baum(const BaumFrage& f) {
    if (f.schritte < 1) throw CliFehler("collatz-tree: I must be at least 1");
    if (f.schritte > ExtremMaxTiefe)
        throw CliFehler("collatz-tree: I must be at most " + std::to_string(ExtremMaxTiefe));
    if (f.mult < -1) throw CliFehler("collatz-tree: M must not be negative");
    ExtremAuftrag a;
    a.tiefe = f.schritte;
    a.art = f.mult >= 0 ? ExtremArt::ZielM : ExtremArt::Voll;
    a.zielM = f.mult;
    // The largest value of depth I is 2^I: the range cuts nothing.
    a.von = Hyp(1);
    a.von[1] = 1;
    a.bis = Hyp(f.schritte / 32 + 2);
    a.bis[1] = 1;
    aShiftLeftHyp(a.bis, f.schritte);
    Sammler s;
    Abbruch = false;
    ExtremWalk(a, Regel3nPlus1(), s);
    Terminal().FortschrittBeenden();
    std::sort(s.werte.begin(), s.werte.end(), [](const Hyp& x, const Hyp& y) { return aCmpHypHyp(x, y) < 0; });
    if (f.json) {
        std::string liste;
        for (const Hyp& h : s.werte) liste += (liste.empty() ? "" : ",") + Hyp2Text(h);
        JsonObjekt j;
        j.Zahl("steps", Decimal(f.schritte));
        if (f.mult >= 0) j.Zahl("mult", Decimal(f.mult));
        j.Zahl("count", Decimal(int64_t(s.werte.size()))).Roh("numbers", "[" + liste + "]").Wahr("stopped", Abbruch);
        std::printf("%s\n", j.Ende().c_str());
    } else {
        AusgabePuffer aus;
        for (const Hyp& h : s.werte) aus.text(Hyp2Text(h) + "\n");
    }
    std::fflush(stdout);
    if (Abbruch) throw Abgebrochen{};
}

}  // namespace

void CollatzBaumBefehlAnmelden(CLI::App& app, std::function<void()>& auftrag) {
    auto f = std::make_shared<BaumFrage>();
    CLI::App* sub = app.add_subcommand("collatz-tree", "the start values that reach 1 in exactly I steps of 3n+1");
    sub->add_option("I", f->schritte, "steps: each 3n+1 and each halving counts one")->required();
    sub->add_option("--m", f->mult, "only the values with exactly M multiplications");
    sub->add_flag("--json", f->json, "print one JSON object: steps, mult, count, numbers");
    sub->callback([f, &auftrag]() { auftrag = [f]() { baum(*f); }; });
}

}  // namespace sw::cli
