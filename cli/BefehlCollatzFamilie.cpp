// sw-cli collatz-family F FROM [--step S] [--count N] [--op OP --offset K] [--formula TEXT]
//        [--csv | --json]
// The Collatz counts of COUNT members of family F (0 n!, 1 n, 2 n^2, 3 n^3, 4 2^n, 5 the
// prime n, 6 the primorial n#, 7 the odd primorial n#/2, 8 F(n), 9 a formula in n) from n =
// FROM on, n moving by S, each member with the operator applied. One row per member as the
// family window lists it ("10! ; 66.17"), or CSV with digits, bits and steps per bit, or one
// JSON object. A family that ends before COUNT members (n past 2^31 - 1) prints what it made
// and says why on stderr. Ctrl-C prints the rows made so far.
#include <cstdio>
#include <iostream>
#include <memory>
#include <vector>

#include "Befehle.h"
#include "CliUmgebung.h"
#include "collatz/CollatzFamilie.h"
#include "frame/Laufzeitfehler.h"

namespace sw::cli {

namespace {

struct FamilienFrage {
    int32_t art = 0;
    int32_t von = 0;
    int32_t schritt = 1;
    int32_t anzahl = 10;
    std::string op = "+";
    int32_t offset = 0;
    std::string formel;
    bool csv = false;
    bool json = false;
};

FamilienOperator operatorLesen(const std::string& t) {
    static const std::vector<std::pair<std::string, FamilienOperator>> namen{
        {"+", FamilienOperator::Plus},  {"add", FamilienOperator::Plus}, {"-", FamilienOperator::Minus},
        {"sub", FamilienOperator::Minus}, {"*", FamilienOperator::Mal},  {"mul", FamilienOperator::Mal},
        {"/", FamilienOperator::Durch}, {"div", FamilienOperator::Durch}, {"^", FamilienOperator::Hoch},
        {"pow", FamilienOperator::Hoch}};
    for (const auto& [name, op] : namen)
        if (name == t) return op;
    throw CliFehler("collatz-family: --op must be one of + - * / ^ (or add sub mul div pow), not " + t);
}

std::string stand(FamilienStand s) {
    switch (s) {
        case FamilienStand::Gezaehlt: return "counted";
        case FamilienStand::UnterNull: return "below zero";
        case FamilienStand::Abgebrochen: return "stopped";
        case FamilienStand::Fehler: return "error";
    }
    return "";
}

std::string zeileJson(const FamilienZeile& z) {
    JsonObjekt j;
    j.Zahl("n", std::to_string(z.n)).Text("formula", z.formel).Text("state", stand(z.stand));
    if (z.stand == FamilienStand::Fehler) return j.Text("message", z.meldung).Ende();
    if (z.stand == FamilienStand::UnterNull) return j.Ende();
    j.Zahl("steps", std::to_string(z.schritte)).Zahl("mults", std::to_string(z.mult));
    j.Zahl("bits", std::to_string(z.bits)).Zahl("digits", std::to_string(z.stellen));
    return j.Ende();
}

void familie(const FamilienFrage& f) {
    if (f.art < 0 || f.art >= FamilienAnzahl) throw CliFehler("collatz-family: F must be 0..9");
    if (f.anzahl < 1) throw CliFehler("collatz-family: --count must be at least 1");
    if (!f.formel.empty() && f.art != int(FamilienArt::Formel))
        throw CliFehler("collatz-family: --formula belongs to family 9");
    FamilienAuftrag a;
    a.art = FamilienArt(f.art);
    a.start = f.von;
    a.schritt = f.schritt;
    a.op = operatorLesen(f.op);
    a.offset = f.offset;
    a.formel = f.formel;
    CollatzFamilie fam(a);  // refusals of the order come from here, before any row

    std::vector<FamilienZeile> zeilen;
    std::string ende;
    bool gestoppt = false;
    if (f.csv) std::printf("%s\n", FamilienCsvKopf().c_str());
    try {
        for (int32_t i = 0; i < f.anzahl; ++i) {
            if (i > 0) fam.Weiter();
            zeilen.push_back(fam.Zaehlen());
            const FamilienZeile& z = zeilen.back();
            if (!f.json) {
                std::printf("%s\n", (f.csv ? FamilienZeileCsv(z) : FamilienZeileText(z)).c_str());
                std::fflush(stdout);
            }
        }
    } catch (const Laufzeitfehler& e) {
        if (zeilen.empty()) throw;
        ende = e.Beschreibung();  // the family ended (n past 2^31 - 1, a power too large)
    } catch (const Abgebrochen&) {
        gestoppt = true;
    }
    Terminal().FortschrittBeenden();
    if (f.json) {
        std::string liste;
        for (const FamilienZeile& z : zeilen) liste += (liste.empty() ? "" : ",") + zeileJson(z);
        JsonObjekt j;
        j.Zahl("family", std::to_string(f.art)).Text("formula", fam.Formel());
        j.Roh("rows", "[" + liste + "]").Wahr("stopped", gestoppt);
        if (!ende.empty()) j.Text("end", ende);
        std::printf("%s\n", j.Ende().c_str());
    }
    std::fflush(stdout);
    if (!ende.empty()) std::cerr << "sw-cli: " << ende << std::endl;
    if (gestoppt) throw Abgebrochen{};
}

}  // namespace

void CollatzFamilieBefehlAnmelden(CLI::App& app, std::function<void()>& auftrag) {
    auto f = std::make_shared<FamilienFrage>();
    CLI::App* sub = app.add_subcommand("collatz-family", "the Collatz counts of a family of numbers (n!, primorials, ...)");
    sub->add_option("F", f->art, "family: 0 n!, 1 n, 2 n^2, 3 n^3, 4 2^n, 5 prime n, 6 n#, 7 n#/2, 8 F(n), 9 formula")
        ->required();
    sub->add_option("FROM", f->von, "first n (0 .. 2^31-1)")->required();
    sub->add_option("--step", f->schritt, "distance in n (in primes for families 5-7), default 1");
    sub->add_option("--count", f->anzahl, "members to count, default 10");
    sub->add_option("--op", f->op, "operator applied to each member: + - * / ^");
    sub->add_option("--offset", f->offset, "right operand of the operator (signed 32-bit)");
    sub->add_option("--formula", f->formel, "family 9: the formula in n, e.g. n^2+1");
    auto* csv = sub->add_flag("--csv", f->csv, "print CSV: formula, digits, bits, steps, mults, steps per bit");
    sub->add_flag("--json", f->json, "print one JSON object: family, formula, rows, stopped")->excludes(csv);
    sub->callback([f, &auftrag]() { auftrag = [f]() { familie(*f); }; });
}

}  // namespace sw::cli
