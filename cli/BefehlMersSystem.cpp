// sw-cli mersenne-system FROM TO [--param M] [--db DIR [--yes]] [--json]
// The systematic search: every prime q = +-1 mod 8 from FROM to TO with the Mersenne number it
// divides (the order of 2 modulo q when that is prime), one line each. With --db the finds are
// held against the database of DIR and the unknown ones marked "new"; --yes enters them.
// --json prints only the totals. Ctrl-C stops at the next yield; what was entered stays.
#include <cstdio>
#include <memory>

#include "Befehle.h"
#include "CliUmgebung.h"
#include "frame/Laufzeitfehler.h"
#include "mersenne/SystemLauf.h"
#include "mersenne/basDB.h"

namespace sw::cli {

namespace {

struct SystemFrage {
    std::string von, bis, ordner;
    int32_t parameter = 1;
    bool ja = false, json = false;
};

class SystemAusgabe : public SystemAnzeige {
public:
    explicit SystemAusgabe(bool json) : json_(json) {}
    void Ergebnis(const SystemErgebnis& e) override {
        if (json_) return;
        if (e.ordnung == 0)
            std::printf("%s ---\n", e.q.c_str());
        else
            std::printf("%s divides 2^%d-1 k=%s\n", e.q.c_str(), e.ordnung, e.k.c_str());
    }
    void NeuerTeiler(const std::string& q, int32_t e, bool eingetragen) override {
        if (json_) return;
        std::printf("new: %s divides 2^%d-1%s\n", q.c_str(), e, eingetragen ? " (entered)" : "");
    }

private:
    bool json_;
};

void mersenneSystem(const SystemFrage& f) {
    const Bereich b = BereichLesen(f.von, f.bis, "mersenne-system");
    if (b.von >= b.bis)
        throw CliFehler("mersenne-system: FROM " + f.von + " must be smaller than TO " + f.bis);
    if (f.parameter < SystemParameterMin || f.parameter > SystemParameterMax)
        throw CliFehler("mersenne-system: --param must lie between 1 and 50");
    if (f.ja && f.ordner.empty()) throw CliFehler("mersenne-system: --yes enters divisors and needs --db DIR");
    SystemAuftrag a;
    a.start = b.von.Text();
    a.ende = b.bis.Text();
    a.parameter = f.parameter;
    a.datenbank = !f.ordner.empty();
    a.eintrag = f.ja ? SystemEintrag::Immer : SystemEintrag::Nie;
    if (a.datenbank) DbOrtWaehlen(f.ordner, "mersenne-system", true);
    SystemAusgabe ausgabe(f.json);
    SystemBefund befund;
    try {
        befund = SystemLauf(a, &ausgabe);
    } catch (const Abgebrochen&) {
        std::fflush(stdout);
        Terminal().FortschrittBeenden();
        std::fprintf(stderr, "sw-cli: mersenne-system: stopped; the divisors entered are stored\n");
        throw;
    } catch (const Laufzeitfehler& e) {
        if (e.Nummer() == DbFehlerNummer) throw CliFehler("mersenne-system: " + e.Beschreibung());
        throw;
    }
    Terminal().FortschrittBeenden();
    if (befund.primzahlen == 0)
        throw CliFehler("mersenne-system: no prime q = +-1 mod 8 from 23 on lies between " + f.von + " and " + f.bis);
    const uint64_t ohne = befund.primzahlen - befund.mitOrdnung;
    if (f.json) {
        JsonObjekt j;
        j.Zahl("from", b.von).Zahl("to", b.bis).Zahl("param", std::to_string(f.parameter));
        j.Zahl("primes", std::to_string(befund.primzahlen)).Zahl("prime_order", std::to_string(befund.mitOrdnung));
        j.Zahl("no_prime_order", std::to_string(ohne)).Zahl("new", std::to_string(befund.neu));
        j.Zahl("entered", std::to_string(befund.eingetragen)).Kommazahl("seconds", befund.sekunden);
        std::printf("%s\n", j.Ende().c_str());
        return;
    }
    std::printf("%llu primes q, %llu with a prime order, %llu ---, %llu new, %llu entered, %.3f s\n",
                static_cast<unsigned long long>(befund.primzahlen), static_cast<unsigned long long>(befund.mitOrdnung),
                static_cast<unsigned long long>(ohne), static_cast<unsigned long long>(befund.neu),
                static_cast<unsigned long long>(befund.eingetragen), befund.sekunden);
}

}  // namespace

void MersSystemBefehlAnmelden(CLI::App& app, std::function<void()>& auftrag) {
    auto f = std::make_shared<SystemFrage>();
    CLI::App* sub = app.add_subcommand("mersenne-system", "walk the prime q from FROM to TO: which 2^p-1 each divides");
    sub->add_option("FROM", f->von, "the first q")->required();
    sub->add_option("TO", f->bis, "the last q")->required();
    sub->add_option("--param", f->parameter, "above 2000000000: exponents from this many millions on (1-50)");
    sub->add_option("--db", f->ordner, "folder of the Mersenne database to hold the finds against");
    sub->add_flag("--yes", f->ja, "enter the new divisors into the database without asking");
    sub->add_flag("--json", f->json,
                  "print one JSON object: from, to, param, primes, prime_order, no_prime_order, new, entered, seconds");
    sub->callback([f, &auftrag]() { auftrag = [f]() { mersenneSystem(*f); }; });
}

}  // namespace sw::cli
