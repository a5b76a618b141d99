// sw-cli palindrome-tree --mode right|left|both [--limit N] [--json]
// The growth tree of the palindrome game: every number reachable from the empty start by
// digits 1..9, each added at the right end, the left end or both ends, that stays prime at
// every step. Prints the count per digit length, the total and the largest member.
#include <memory>

#include "Befehle.h"
#include "CliUmgebung.h"
#include "frame/Oberflaeche.h"
#include "primality/Palindrom.h"

namespace sw::cli {

namespace {

struct BaumFrage {
    std::string modus;
    int32_t grenze = 0;
    bool json = false;
};

Anordnung modusLesen(const std::string& text) {
    if (text == "right") return Anordnung::Rechts;
    if (text == "left") return Anordnung::Links;
    if (text == "both") return Anordnung::Beide;
    throw CliFehler("palindrome-tree: --mode must be right, left or both, not '" + text + "'");
}

void baum(const BaumFrage& f) {
    const Anordnung a = modusLesen(f.modus);
    if (f.grenze < 0) throw CliFehler("palindrome-tree: --limit must be 0 (no bound) or a digit count");
    const PalindromBaum b = PalindromBaumWachsen(a, f.grenze, [](int32_t, uint64_t) {
        DoEvents();  // Ctrl-C ends the job here
        return true;
    });
    AusgabePuffer aus;
    if (f.json) {
        std::string laengen = "{";
        for (size_t k = 1; k < b.jeLaenge.size(); ++k) {
            if (b.jeLaenge[k] == 0) continue;
            laengen += (laengen.size() > 1 ? ",\"" : "\"") + std::to_string(k) + "\":" + std::to_string(b.jeLaenge[k]);
        }
        JsonObjekt j;
        j.Text("mode", f.modus).Zahl("limit", std::to_string(f.grenze)).Roh("per_length", laengen + "}");
        j.Zahl("total", std::to_string(b.anzahl)).Zahl("largest", b.groesstes.empty() ? "0" : b.groesstes);
        aus.text(j.Ende() + "\n");
        return;
    }
    for (size_t k = 1; k < b.jeLaenge.size(); ++k) {
        if (b.jeLaenge[k] == 0) continue;
        aus.text("digits " + std::to_string(k) + ": " + std::to_string(b.jeLaenge[k]) + "\n");
    }
    aus.text("total: " + std::to_string(b.anzahl) + "\nlargest: " + b.groesstes + "\n");
}

}  // namespace

void PalindromBefehlAnmelden(CLI::App& app, std::function<void()>& auftrag) {
    auto f = std::make_shared<BaumFrage>();
    CLI::App* sub = app.add_subcommand("palindrome-tree", "every chain of digits that stays prime, grown right, left or at both ends");
    sub->add_option("--mode", f->modus, "right, left or both")->required();
    sub->add_option("--limit", f->grenze, "grow up to this many digits (0: until the tree ends)");
    sub->add_flag("--json", f->json, "print one JSON object");
    sub->callback([f, &auftrag]() { auftrag = [f]() { baum(*f); }; });
}

}  // namespace sw::cli
