// sw-cli collatz-frac START Y [--max-elements N] [--json]
// sw-cli collatz-frac-tree I Y [--m M|L] [--from A --to B] [--mode i|k] [--json]
// The rule 3n+1 with the factor 3 replaced by a multiplier Y of ten decimals: x -> ceil(x Y),
// made even, then halved. collatz-frac walks one start (its odd values, as the window lists
// them) until 1, a value that came before (a loop), or N elements. collatz-frac-tree lists
// the values that reach 1 in exactly I steps, made backwards from 1 as the extreme search
// makes them, with their multiplications and marks, in ascending order.
#include <algorithm>
#include <cstdio>
#include <memory>
#include <vector>

#include "Befehle.h"
#include "CliUmgebung.h"
#include "arith/HypText.h"
#include "collatz/CollatzKomma.h"
#include "collatz/basCollatz.h"
#include "frame/Oberflaeche.h"
#include "frame/basZentral.h"
#include "zahlkern/zahlkern.h"

namespace sw::cli {

namespace {

// A walk that keeps growing holds every element: past this many the memory would run out
// long before anything else.
constexpr int32_t kMaxElementeGrenze = 100000;

struct KommaFrage {
    std::string start, y;
    int32_t maxElemente = 10000;
    std::string tiefe, m, von = "1", bis, modus = "i";
    bool json = false;
};

std::string multiplikator(const std::string& befehl, const std::string& text) {
    const std::optional<std::string> y = KommaMultiplikator(text);
    if (!y) throw CliFehler(befehl + ": Y must be a number from 0 to below 10 (comma or point), not " + text);
    return *y;
}

void folge(const KommaFrage& f) {
    if (f.maxElemente < 1 || f.maxElemente > kMaxElementeGrenze)
        throw CliFehler("collatz-frac: --max-elements must be 1.." + std::to_string(kMaxElementeGrenze));
    const std::string y = multiplikator("collatz-frac", f.y);
    const Mpz start = ArgumentLesen(f.start, "START");
    if (mpz_sgn(start.get()) == 0) throw CliFehler("collatz-frac: START must be at least 1");
    const std::string text =
        CollatzKommaFolge(ZahlText(start.get()), y, [](int32_t) { return false; }, f.maxElemente);
    const bool eins = aCmpHyp32(FolgenListe.back(), 1) == 0;
    const bool schleife = !eins && text.ends_with("...Schleife...");
    const char* ende = eins ? "one" : schleife ? "loop" : "limit";
    if (f.json) {
        std::string liste;
        for (const Hyp& h : FolgenListe) liste += (liste.empty() ? "" : ",") + Hyp2Text(h);
        JsonObjekt j;
        j.Zahl("start", ZahlText(start.get())).Text("y", y);
        j.Zahl("elements", std::to_string(FolgenListe.size())).Text("end", ende).Roh("numbers", "[" + liste + "]");
        std::printf("%s\n", j.Ende().c_str());
        return;
    }
    // The window's text with plain digits: a script reads them without the display grouping.
    AusgabePuffer aus;
    aus.text(y + " ");
    for (size_t i = 0; i < FolgenListe.size(); ++i) aus.text((i ? "; " : "") + Hyp2Text(FolgenListe[i]));
    aus.text(schleife ? "...Schleife...\n" : !eins ? "...Abbruch...\n" : "\n");
    aus.text("elements: " + std::to_string(FolgenListe.size()) + ", end: " + ende + "\n");
}

struct Treffer {
    Hyp wert;
    int32_t m;
    std::string marks;
};

class Sammler final : public ExtremZiel {
  public:
    void Treffer(const Hyp& wert, int32_t m, const std::string& muster) override { liste.push_back({wert, m, muster}); }
    // A yield costs more than a node; every 65536 nodes keeps Ctrl-C prompt.
    bool Gestoppt() override {
        if (++knoten_ % 65536 == 0) DoEvents();
        return Abbruch;
    }
    std::vector<cli::Treffer> liste;

  private:
    uint64_t knoten_ = 0;
};

void baum(const KommaFrage& f) {
    const Mpz i = ArgumentLesen(f.tiefe, "I");
    if (mpz_cmp_ui(i.get(), 1) < 0) throw CliFehler("collatz-frac-tree: I must be at least 1");
    if (mpz_cmp_ui(i.get(), ExtremMaxTiefe) > 0)
        throw CliFehler("collatz-frac-tree: I must be at most " + std::to_string(ExtremMaxTiefe));
    const std::string y = multiplikator("collatz-frac-tree", f.y);
    if (y < "1,0000000000")
        throw CliFehler("collatz-frac-tree: Y must be at least 1; below it a value has several odd predecessors");
    if (f.modus != "i" && f.modus != "k") throw CliFehler("collatz-frac-tree: --mode must be i or k, not " + f.modus);
    ExtremAuftrag a;
    a.tiefe = int32_t(mpz_get_ui(i.get()));
    a.modusK = f.modus == "k";
    if (f.m == "L" || f.m == "l") {
        a.art = ExtremArt::Pfad;
    } else if (!f.m.empty()) {
        const Mpz m = ArgumentLesen(f.m, "M");
        if (mpz_cmp_ui(m.get(), ExtremMaxTiefe) > 0) throw CliFehler("collatz-frac-tree: M must be at most I");
        a.art = ExtremArt::ZielM;
        a.zielM = int32_t(mpz_get_ui(m.get()));
    }
    a.von = MpzZuHyp(ArgumentLesen(f.von, "FROM").get());
    if (f.bis.empty()) {
        // No value of depth I exceeds 2^I: each level at most doubles.
        a.bis = Hyp(a.tiefe / 32 + 2);
        a.bis[1] = 1;
        aShiftLeftHyp(a.bis, a.tiefe);
    } else {
        a.bis = MpzZuHyp(ArgumentLesen(f.bis, "TO").get());
    }
    if (aCmpHypHyp(a.von, a.bis) > 0) throw CliFehler("collatz-frac-tree: FROM must not exceed TO");
    Sammler s;
    Abbruch = false;
    const ExtremErgebnis e = ExtremWalk(a, RegelKomma(y), s);
    Terminal().FortschrittBeenden();
    std::sort(s.liste.begin(), s.liste.end(),
              [](const Treffer& x, const Treffer& z) { return aCmpHypHyp(x.wert, z.wert) < 0; });
    if (f.json) {
        std::string liste;
        for (const Treffer& t : s.liste) {
            liste += liste.empty() ? "" : ",";
            JsonObjekt h;
            h.Zahl("number", Hyp2Text(t.wert)).Zahl("mult", std::to_string(t.m)).Text("marks", t.marks);
            liste += h.Ende();
        }
        JsonObjekt j;
        j.Zahl("steps", std::to_string(a.tiefe)).Text("y", y).Text("mode", f.modus);
        j.Zahl("count", std::to_string(s.liste.size())).Wahr("complete", e.vollstaendig).Wahr("stopped", Abbruch);
        j.Roh("hits", "[" + liste + "]");
        std::printf("%s\n", j.Ende().c_str());
    } else {
        AusgabePuffer aus;
        for (const Treffer& t : s.liste) aus.text(Hyp2Text(t.wert) + " " + std::to_string(t.m) + " " + t.marks + "\n");
        aus.leeren();
        // The range cut a part of the tree: said on stderr, so that stdout stays the list.
        if (!e.vollstaendig) std::fprintf(stderr, "collatz-frac-tree: the range cut off part of the tree\n");
    }
    std::fflush(stdout);
    if (Abbruch) throw Abgebrochen{};
}

}  // namespace

void CollatzKommaBefehleAnmelden(CLI::App& app, std::function<void()>& auftrag) {
    auto f = std::make_shared<KommaFrage>();
    CLI::App* sub = app.add_subcommand("collatz-frac", "one walk of x -> ceil(x Y) made even, halved to odd");
    sub->add_option("START", f->start, "the start, any size (a formula)")->required();
    sub->add_option("Y", f->y, "the multiplier, up to ten decimals: 3,1 or 3.1")->required();
    sub->add_option("--max-elements", f->maxElemente, "stop after N elements (default 10000)");
    sub->add_flag("--json", f->json, "print one JSON object: start, y, elements, end, numbers");
    sub->callback([f, &auftrag]() { auftrag = [f]() { folge(*f); }; });

    auto t = std::make_shared<KommaFrage>();
    CLI::App* baumSub =
        app.add_subcommand("collatz-frac-tree", "the values that reach 1 in exactly I steps of the multiplier Y");
    baumSub->add_option("I", t->tiefe, "steps (mode i) or halvings (mode k)")->required();
    baumSub->add_option("Y", t->y, "the multiplier, 1 to below 10, up to ten decimals")->required();
    baumSub->add_option("--m", t->m, "only the values with exactly M multiplications; L: one single path");
    baumSub->add_option("--from", t->von, "smallest value a path may touch (default 1)");
    baumSub->add_option("--to", t->bis, "largest value a path may touch (default 2^I)");
    baumSub->add_option("--mode", t->modus, "i: one step per level; k: one halving per level");
    baumSub->add_flag("--json", t->json, "print one JSON object: steps, y, mode, count, complete, stopped, hits");
    baumSub->callback([t, &auftrag]() { auftrag = [t]() { baum(*t); }; });
}

}  // namespace sw::cli
