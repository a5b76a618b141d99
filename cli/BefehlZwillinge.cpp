// sw-cli twins FROM TO --method 0..3 [--test perrin|rabin|strassen|fermat|bpsw]
// The twin search of the window by one of its four methods, at any height: trial division of
// (6m)^2 - 1, the primary raster, a secondary range, or the tertiary sieve with a probable-prime
// test of the pairs (BPSW unless chosen). Prints the pairs, their count and the seconds taken.
#include <chrono>
#include <cstdio>

#include "Argumente.h"
#include "Befehle.h"
#include "CliUmgebung.h"
#include "frame/basZentral.h"
#include "primality/HypMpz.h"
#include "primality/Zwillinge.h"
#include "sieve/PrimaerLauf.h"
#include "sieve/RasterTabellen.h"

namespace sw::cli {

namespace {

int32_t verfahrenLesen(const std::string& text) {
    if (text.size() == 1 && text[0] >= '0' && text[0] < char('0' + ZwillingeVerfahrenAnzahl)) return text[0] - '0';
    throw CliFehler("twins: --method must be 0..3, not " + text);
}

int32_t testLesen(const std::string& text) {
    const char* namen[ZwillingeArtenAnzahl] = {"perrin", "rabin", "strassen", "fermat", "bpsw"};
    for (int32_t i = 0; i < ZwillingeArtenAnzahl; ++i) {
        if (text == namen[i]) return i;
    }
    throw CliFehler("twins: --test must be perrin, rabin, strassen, fermat or bpsw, not " + text);
}

// Without a raster of the user's: up to TO for method 1, else up to the root of TO, at most
// 10^7 (a cut beyond which the sieve hardly thins the candidates any more).
Decimal StandardGrenze(int32_t verfahren, mpz_srcptr bis) {
    Mpz g;
    if (verfahren == VerfahrenPrimaer) {
        mpz_set(g, bis);
    } else {
        mpz_sqrt(g, bis);
        mpz_add_ui(g, g, 1);
        if (mpz_cmp_ui(g.get(), 10000000) > 0) mpz_set_ui(g, 10000000);
    }
    if (mpz_cmp_ui(g.get(), 1000) < 0) mpz_set_ui(g, 1000);
    if (mpz_sizeinbase(g.get(), 2) > 96) return GroessteGrenze();  // refused below by the check
    const Decimal grenze = ZahlLesen(ZahlText(g), "the limit");
    return grenze > GroessteGrenze() ? GroessteGrenze() : grenze;
}

// The pairs go straight to stdout; the window's lines (distances, the end line) are not needed.
class Ausgabe : public ZwillingeAnzeige {
public:
    explicit Ausgabe(bool json) : json_(json) {}
    void Zwilling(const Hyp& p, const std::string&) override {
        Mpz z(p);
        const std::string klein = ZahlText(z);
        mpz_add_ui(z, z, 2);
        if (json_) {
            aus_.text(std::string(anzahl_ ? ",[" : "[") + klein + "," + ZahlText(z) + "]");
        } else {
            aus_.text(klein + " " + ZahlText(z) + "\n");
        }
        if ((++anzahl_ & 0xFF) == 0) aus_.leeren();
    }
    void Zeile(const std::string&) override {}
    AusgabePuffer& Puffer() { return aus_; }

private:
    AusgabePuffer aus_;
    bool json_;
    int64_t anzahl_ = 0;
};

}  // namespace

void ZwillingeMitVerfahren(const std::string& von, const std::string& bis, const std::string& methode,
                           const std::string& test, const RasterWahl& raster, bool json) {
    ZwillingeAuftrag auftrag;
    auftrag.verfahren = verfahrenLesen(methode);
    auftrag.art = testLesen(test.empty() ? "bpsw" : test);
    if (!test.empty() && auftrag.verfahren != VerfahrenProbabilistisch) {
        throw CliFehler("twins: --test belongs to --method 3");
    }
    const Mpz a = ArgumentLesen(von, "FROM"), b = ArgumentLesen(bis, "TO");
    if (mpz_cmp(a, b) > 0) throw CliFehler("twins: FROM " + ZahlText(a) + " is greater than TO " + ZahlText(b));
    Mpz laenge;
    mpz_sub(laenge, b, a);
    if (mpz_cmp_ui(laenge.get(), GrenzeLong) > 0) {
        throw CliFehler("twins: with --method, TO - FROM must not exceed 2000000000");
    }
    auftrag.start = MpzZuHyp(a);
    auftrag.intervall = int32_t(mpz_get_ui(laenge.get()));
    RasterBereitstellen(raster, StandardGrenze(auftrag.verfahren, b));
    Terminal().LetzteMeldung();
    const bool gut = EingabePruefen(auftrag.start, auftrag.intervall, auftrag.verfahren);
    const std::string meldung = Terminal().LetzteMeldung();
    if (!gut) throw CliFehler("twins: " + meldung);
    if (!meldung.empty()) std::fprintf(stderr, "sw-cli: warning: %s\n", meldung.c_str());

    Ausgabe ausgabe(json);
    if (json) {
        JsonObjekt kopf;
        kopf.Zahl("from", ZahlText(a)).Zahl("to", ZahlText(b)).Zahl("method", std::to_string(auftrag.verfahren));
        if (auftrag.verfahren == VerfahrenProbabilistisch) kopf.Text("test", test.empty() ? "bpsw" : test);
        kopf.Zahl("limit", PrimaerGrenze);
        const std::string k = kopf.Ende();
        ausgabe.Puffer().text(k.substr(0, k.size() - 1) + ",\"twins\":[");
    }
    const auto beginn = std::chrono::steady_clock::now();
    const int64_t anzahl = ZwillingeSuchen(auftrag, ausgabe);
    const double sekunden = std::chrono::duration<double>(std::chrono::steady_clock::now() - beginn).count();
    // Method 3 lists probable twins; a stop of its sieve or test leaves the list incomplete.
    const std::string schluss = Abbruch ? "stopped" : "complete";
    char zahlen[96];
    if (json) {
        std::snprintf(zahlen, sizeof zahlen, "],\"count\":%lld,\"seconds\":%.3f,", (long long)anzahl, sekunden);
        ausgabe.Puffer().text(zahlen);
        ausgabe.Puffer().text("\"proven\":" + std::string(auftrag.verfahren == VerfahrenProbabilistisch ? "false" : "true") +
                              ",\"state\":\"" + schluss + "\"}\n");
    } else {
        std::snprintf(zahlen, sizeof zahlen, "%lld twins in %.3f s", (long long)anzahl, sekunden);
        ausgabe.Puffer().text(std::string(zahlen) + (Abbruch ? " (stopped)\n" : "\n"));
    }
}

}  // namespace sw::cli
