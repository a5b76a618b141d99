// sw-cli collatz N [--verfahren 0..3] [--ausgabe 0|1|2|9] [--reduktion K] [--rule 3n+1|3n-1] [--json]
// sw-cli collatz-count FROM TO [--step S] [--rule 3n+1|3n-1] [--summary] [--json]
// collatz walks one start of any size (a formula) with the counting method and output form of
// the Collatz windows and prints their text, then the counts. collatz-count gives the steps
// (a multiplication and a halving one step each) and multiplications of every start of a
// range below 2^64 (every S-th start with --step, the columns of the step-count graphic), or
// with --summary the totals and the delay records of the range.
#include <cstdio>
#include <functional>
#include <memory>

#include "Befehle.h"
#include "CliUmgebung.h"
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

void collatzZaehlen(const CollatzFrage& f) {
    const CollatzRegel regel = regelLesen("collatz-count", f.regel);
    const uint64_t von = bis64(f.start, "FROM"), bis = bis64(f.bis, "TO");
    if (von > bis) throw CliFehler("collatz-count: FROM must not exceed TO");
    if (f.schritt < 1) throw CliFehler("collatz-count: --step must be at least 1");
    const uint64_t schritt = uint64_t(f.schritt);
    if (!f.zusammenfassung) {
        AusgabePuffer aus;
        if (f.json) aus.text("{\"from\":" + std::to_string(von) + ",\"to\":" + std::to_string(bis) + ",\"starts\":[");
        startsZaehlen(von, bis, schritt, regel, [&](uint64_t n, const CollatzGang& g) {
            aus.text(f.json ? (n == von ? "[" : ",[") : "");
            aus.zahl(n);
            aus.text(f.json ? "," : " ");
            aus.zahl(uint64_t(g.tSchritte + g.ungerade));
            aus.text(f.json ? "," : " ");
            aus.zahl(uint64_t(g.ungerade));
            aus.text(f.json ? "]" : "\n");
        });
        Terminal().FortschrittBeenden();
        if (f.json) aus.text("]}\n");
        return;
    }
    uint64_t summe = 0, summeMult = 0, rekord = 0;
    bool erster = true;
    std::string rekorde;
    uint64_t anzahlStarts = 0;
    startsZaehlen(von, bis, schritt, regel, [&](uint64_t n, const CollatzGang& g) {
        ++anzahlStarts;
        const uint64_t s = uint64_t(g.tSchritte + g.ungerade);
        summe += s;
        summeMult += uint64_t(g.ungerade);
        if (erster || s > rekord) {
            rekord = s;
            if (!rekorde.empty()) rekorde += f.json ? "," : "\n";
            rekorde += f.json ? "[" + std::to_string(n) + "," + std::to_string(s) + "]"
                              : "  " + std::to_string(n) + " " + std::to_string(s);
            erster = false;
        }
    });
    Terminal().FortschrittBeenden();
    const std::string anzahl = std::to_string(anzahlStarts);
    if (f.json) {
        JsonObjekt j;
        j.Zahl("from", std::to_string(von)).Zahl("to", std::to_string(bis)).Zahl("starts", anzahl);
        j.Zahl("steps", std::to_string(summe)).Zahl("mult", std::to_string(summeMult));
        j.Roh("records", "[" + rekorde + "]");
        std::printf("%s\n", j.Ende().c_str());
        return;
    }
    std::printf("starts: %s\nsteps: %llu\nmult: %llu\nrecords (start steps):\n%s\n", anzahl.c_str(),
                static_cast<unsigned long long>(summe), static_cast<unsigned long long>(summeMult), rekorde.c_str());
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
