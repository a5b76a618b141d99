// sw-cli collatz N [--verfahren 0..3] [--ausgabe 0|1|2|9] [--reduktion K] [--rule 3n+1|3n-1] [--json]
// sw-cli collatz-count FROM TO [--step S] [--rule 3n+1|3n-1] [--summary] [--json]
// collatz walks one start of any size (a formula) with the counting method and output form of
// the Collatz windows and prints their text, then the counts. collatz-count gives the steps
// (a multiplication and a halving one step each) and multiplications of every start of a
// range below 2^64 (every S-th start with --step, the columns of the step-count graphic), or
// with --summary the totals and the delay records of the range. In an MPI job collatz-count
// spreads its starts over the processes piece by piece; process 0 prints what one would.
#include <cstdio>
#include <functional>
#include <memory>

#include "Befehle.h"
#include "BereichStuecke.h"
#include "CliUmgebung.h"
#include "MpiVerteilung.h"
#include "collatz/CollatzBereich.h"
#include "collatz/basCollatz.h"
#include "frame/Oberflaeche.h"
#include "frame/basZentral.h"
#include "primality/HypMpz.h"

namespace sw::cli {

namespace {

struct CollatzFrage {
    std::string start, bis;
    int32_t verfahren = 0;
    int32_t ausgabe = 0;
    int32_t reduktion = 0;
    std::string regel = "3n+1";
    int64_t schritt = 1;
    bool zusammenfassung = false;
    bool json = false;
};

CollatzRegel regelLesen(const std::string& befehl, const std::string& text) {
    if (text == "3n+1") return CollatzRegel::DreiNPlusEins;
    if (text == "3n-1") return CollatzRegel::DreiNMinusEins;
    throw CliFehler(befehl + ": --rule must be 3n+1 or 3n-1, not " + text);
}

void collatz(const CollatzFrage& f) {
    const CollatzRegel regel = regelLesen("collatz", f.regel);
    if (f.verfahren < 0 || f.verfahren > 3) throw CliFehler("collatz: --verfahren must be 0..3");
    if (f.ausgabe != 0 && f.ausgabe != 1 && f.ausgabe != 2 && f.ausgabe != 9)
        throw CliFehler("collatz: --ausgabe must be 0, 1, 2 or 9");
    if (f.reduktion < 0) throw CliFehler("collatz: --reduktion must not be negative");
    const Mpz n = ArgumentLesen(f.start, "N");
    CollatzZahl = MpzZuHyp(n.get());
    const std::string text = regel == CollatzRegel::DreiNPlusEins
                                 ? CollatzFolgeHyp(f.verfahren, f.ausgabe, f.reduktion)
                                 : CollatzFolge3nMinus1(f.verfahren, f.ausgabe);
    Terminal().FortschrittBeenden();
    if (f.json) {
        JsonObjekt j;
        j.Zahl("start", ZahlText(n.get())).Text("rule", f.regel).Zahl("verfahren", std::to_string(f.verfahren));
        j.Zahl("elements", std::to_string(Elemente)).Zahl("mult", std::to_string(Mult)).Zahl("div", std::to_string(Div));
        if (f.verfahren == 3 && regel == CollatzRegel::DreiNPlusEins) j.Zahl("max_run", std::to_string(MaxLauf));
        j.Text("text", text);
        std::printf("%s\n", j.Ende().c_str());
        return;
    }
    AusgabePuffer aus;
    aus.text(text);
    aus.text("\n");
    if (f.ausgabe != 9) {
        aus.text("elements: " + std::to_string(Elemente) + ", mult: " + std::to_string(Mult) +
                 ", div: " + std::to_string(Div) + "\n");
    }
}

uint64_t bis64(const std::string& text, const char* was) {
    const Mpz z = ArgumentLesen(text, was);
    if (mpz_sizeinbase(z.get(), 2) > 64) throw CliFehler(std::string("collatz-count: ") + was + " must be below 2^64");
    uint64_t v = 0;
    mpz_export(&v, nullptr, -1, sizeof v, 0, 0, z.get());
    return v;
}

using JeStart = std::function<void(uint64_t, const CollatzGang&)>;

// Consecutive starts reuse the counts of the smaller ones; a wider step walks each start
// alone, as the graphic's columns lie too far apart to meet.
void startsZaehlen(uint64_t von, uint64_t bis, uint64_t schritt, CollatzRegel regel, const JeStart& jeStart) {
    if (schritt == 1) {
        CollatzBereichZaehlen(von, bis, regel, jeStart);
        return;
    }
    for (uint64_t n = von, gezaehlt = 1;; n += schritt, ++gezaehlt) {
        jeStart(n, CollatzGang64(n, regel));
        if (bis - n < schritt) return;
        if (gezaehlt % 65536 == 0) {
            DoEvents();
            if (Abbruch) return;
        }
    }
}

// The totals of a run of starts and its delay records (a start whose step count exceeds those
// of all starts before it). The records of a whole range are those records of its pieces that
// exceed everything before their piece, so pieces combine exactly in order.
struct CollatzSumme {
    uint64_t starts = 0, schritte = 0, mult = 0;
    std::vector<std::pair<uint64_t, uint64_t>> rekorde;  // start, steps

    void start(uint64_t n, const CollatzGang& g) {
        const uint64_t s = uint64_t(g.tSchritte + g.ungerade);
        ++starts;
        schritte += s;
        mult += uint64_t(g.ungerade);
        if (rekorde.empty() || s > rekorde.back().second) rekorde.push_back({n, s});
    }
    void dazu(const CollatzSumme& stueck) {
        starts += stueck.starts;
        schritte += stueck.schritte;
        mult += stueck.mult;
        for (const auto& r : stueck.rekorde) {
            if (rekorde.empty() || r.second > rekorde.back().second) rekorde.push_back(r);
        }
    }
    std::string daten() const {
        std::string d;
        for (uint64_t w : {starts, schritte, mult, uint64_t(rekorde.size())}) WortAnhaengen(d, w);
        for (const auto& [n, s] : rekorde) WortAnhaengen(d, n), WortAnhaengen(d, s);
        return d;
    }
    static CollatzSumme aus(const std::string& d) {
        CollatzSumme c;
        size_t pos = 0;
        c.starts = WortLesen(d, pos);
        c.schritte = WortLesen(d, pos);
        c.mult = WortLesen(d, pos);
        c.rekorde.resize(WortLesen(d, pos));
        for (auto& [n, s] : c.rekorde) n = WortLesen(d, pos), s = WortLesen(d, pos);
        return c;
    }
};

void summeAusgeben(const CollatzFrage& f, uint64_t von, uint64_t bis, const CollatzSumme& c) {
    std::string rekorde;
    for (const auto& [n, s] : c.rekorde) {
        if (!rekorde.empty()) rekorde += f.json ? "," : "\n";
        rekorde += f.json ? "[" + std::to_string(n) + "," + std::to_string(s) + "]"
                          : "  " + std::to_string(n) + " " + std::to_string(s);
    }
    const std::string anzahl = std::to_string(c.starts);
    if (f.json) {
        JsonObjekt j;
        j.Zahl("from", std::to_string(von)).Zahl("to", std::to_string(bis)).Zahl("starts", anzahl);
        j.Zahl("steps", std::to_string(c.schritte)).Zahl("mult", std::to_string(c.mult));
        j.Roh("records", "[" + rekorde + "]");
        std::printf("%s\n", j.Ende().c_str());
        return;
    }
    std::printf("starts: %s\nsteps: %llu\nmult: %llu\nrecords (start steps):\n%s\n", anzahl.c_str(),
                static_cast<unsigned long long>(c.schritte), static_cast<unsigned long long>(c.mult), rekorde.c_str());
}

void collatzZaehlen(const CollatzFrage& f) {
    const CollatzRegel regel = regelLesen("collatz-count", f.regel);
    const uint64_t von = bis64(f.start, "FROM"), bis = bis64(f.bis, "TO");
    if (von > bis) throw CliFehler("collatz-count: FROM must not exceed TO");
    if (f.schritt < 1) throw CliFehler("collatz-count: --step must be at least 1");
    const uint64_t schritt = uint64_t(f.schritt);
    // Pieces are runs of consecutive starts: the k-th start is von + k * schritt.
    const uint64_t letzter = (bis - von) / schritt;
    const uint64_t n = letzter == UINT64_MAX ? StartStuecke(letzter) : StartStuecke(letzter + 1);
    const auto stueckZaehlen = [&](uint64_t i, const JeStart& jeStart) {
        const auto [x, y] = Stueck(0, letzter, n, i);
        if (x <= y) startsZaehlen(von + uint64_t(x) * schritt, von + uint64_t(y) * schritt, schritt, regel, jeStart);
    };
    if (!f.zusammenfassung) {
        AusgabePuffer aus;
        if (f.json && !NebenRang()) aus.text("{\"from\":" + std::to_string(von) + ",\"to\":" + std::to_string(bis) + ",\"starts\":[");
        ListeVerteilen(aus, n, f.json, [&](AusgabePuffer& a, uint64_t i) {
            uint64_t anzahl = 0;
            stueckZaehlen(i, [&](uint64_t start, const CollatzGang& g) {
                a.text(f.json ? (anzahl++ ? ",[" : "[") : "");
                a.zahl(start);
                a.text(f.json ? "," : " ");
                a.zahl(uint64_t(g.tSchritte + g.ungerade));
                a.text(f.json ? "," : " ");
                a.zahl(uint64_t(g.ungerade));
                a.text(f.json ? "]" : "\n");
            });
            return anzahl;
        });
        if (NebenRang()) return;
        Terminal().FortschrittBeenden();
        if (f.json) aus.text("]}\n");
        return;
    }
    CollatzSumme gesamt;
    StueckeVerteilen(
        n,
        [&](uint64_t i) {
            CollatzSumme c;
            stueckZaehlen(i, [&](uint64_t start, const CollatzGang& g) { c.start(start, g); });
            return c.daten();
        },
        [&](uint64_t, const std::string& daten) { gesamt.dazu(CollatzSumme::aus(daten)); });
    if (NebenRang()) return;
    Terminal().FortschrittBeenden();
    summeAusgeben(f, von, bis, gesamt);
}

}  // namespace

void CollatzBefehleAnmelden(CLI::App& app, std::function<void()>& auftrag) {
    auto f = std::make_shared<CollatzFrage>();
    CLI::App* sub = app.add_subcommand("collatz", "walk one start of any size by 3n+1 (or 3n-1) down to its end");
    sub->add_option("N", f->start, "the start, a formula such as 2^100000-1")->required();
    sub->add_option("--verfahren", f->verfahren,
                    "0 every value, 1 a multiplication with its halving as one, 2 odd values only, 3 blocks "
                    "from odd value to odd value");
    sub->add_option("--ausgabe", f->ausgabe, "0 marks (! multiply, . halve), 1 values, 2 values with block pairs, 9 summary");
    sub->add_option("--reduktion", f->reduktion, "halvings held back per block in --verfahren 3");
    sub->add_option("--rule", f->regel, "3n+1 (default) or 3n-1");
    sub->add_flag("--json", f->json, "print one JSON object: start, rule, verfahren, elements, mult, div, text");
    sub->callback([f, &auftrag]() { auftrag = [f]() { collatz(*f); }; });

    auto g = std::make_shared<CollatzFrage>();
    CLI::App* zaehl = app.add_subcommand("collatz-count", "steps and multiplications of every start FROM..TO below 2^64");
    zaehl->add_option("FROM", g->start, "first start")->required();
    zaehl->add_option("TO", g->bis, "last start")->required();
    zaehl->add_option("--step", g->schritt, "distance of two starts (default 1)");
    zaehl->add_option("--rule", g->regel, "3n+1 (default) or 3n-1");
    zaehl->add_flag("--summary", g->zusammenfassung, "only the totals and the delay records of the range");
    zaehl->add_flag("--json", g->json, "one JSON object (starts as [n, steps, mult], or the summary)");
    zaehl->callback([g, &auftrag]() { auftrag = [g]() { collatzZaehlen(*g); }; });
}

}  // namespace sw::cli
