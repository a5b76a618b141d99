// sw-cli teileranalyse FROM TO [--kfilter F --min-exp E --max-exp P | --exponent P] [--class 1|7]
//                    [--width long|dec|hyp] [--limit L | --block FILE] [--db DIR] [--json]
// The divisor analysis: the primes q in [FROM, TO] and the Mersenne numbers 2^p - 1 with a
// prime p they divide. Hits are printed as they come (with --db also entered into the Mersenne
// database of DIR); a q above the raster that BPSW finds composite is printed as such and not
// stored. The last line names the next q: a run stopped by Ctrl-C goes on exactly there.
#include <unistd.h>

#include <cstdio>
#include <memory>

#include "Befehle.h"
#include "CliUmgebung.h"
#include "frame/Fortschritt.h"
#include "frame/basZentral.h"
#include "frame/Oberflaeche.h"
#include "mersenne/TeilerAnalyse.h"
#include "sieve/RasterTabellen.h"

namespace sw::cli {

namespace {

struct AnalyseFrage {
    std::string von, bis, kFilter, minExp, maxExp, exponent, klasse, breite = "long", ordner;
    RasterWahl raster;
    bool json = false;
};

class AnalyseAusgabe : public TeilerAnalyseAnzeige {
public:
    AnalyseAusgabe(const Decimal& von, const Decimal& bis, bool json) : von_(von), bis_(bis), json_(json) {}
    int32_t ListeAnzahl() const override { return 0; }
    void ListeLeeren() override {}
    void ListeHinzufuegen(const std::string&) override {}
    bool DbEintragen() const override { return db; }

    void Treffer(const std::string& q, int32_t e, const std::string& k, bool prim) override {
        if (json_) {
            JsonObjekt j;
            j.Zahl("q", q).Zahl("p", std::to_string(e)).Zahl("k", k).Wahr("prime", prim);
            liste_ += (liste_.empty() ? "" : ",") + j.Ende();
            return;
        }
        Terminal().FortschrittBeenden();
        std::printf("%s divides 2^%d-1 k = %s%s\n", q.c_str(), e, k.c_str(), prim ? "" : " (composite, not stored)");
    }
    // On a terminal, the running q and the remaining time by the share of the range passed.
    void Stand(const std::string& q, int32_t) override {
        static const bool terminal = ::isatty(STDERR_FILENO) == 1;
        if (!terminal || q.size() > 28) return;
        const double jetzt = Timer();
        if (jetzt - gezeigt_ < 1.0) return;
        gezeigt_ = jetzt;
        std::fprintf(stderr, "\r\033[Ksw-cli: q = %s  %s", q.c_str(),
                     ZeitTextGross(start_, Decimal::ausText(q), von_, bis_).c_str());
        std::fflush(stderr);
    }
    const std::string& Liste() const { return liste_; }
    bool db = false;

private:
    Decimal von_, bis_;
    bool json_;
    std::string liste_;
    double start_ = Timer(), gezeigt_ = Timer();
};

int64_t exponentLesen(const std::string& text, const char* name) {
    const Decimal d = ZahlLesen(text, name);
    if (d < Decimal(1) || d > Decimal(GrenzeLong))
        throw CliFehler(std::string("teileranalyse: ") + name + " must lie between 1 and 2000000000");
    return d.AlsInt64();
}

void teileranalyse(const AnalyseFrage& f) {
    TeilerAnalyseAuftrag a;
    if (f.breite == "dec") {
        a.breite = TeilerBreite::Decimal;
    } else if (f.breite == "hyp") {
        a.breite = TeilerBreite::Hyp;
    } else if (f.breite != "long") {
        throw CliFehler("teileranalyse: --width must be long, dec or hyp, not " + f.breite);
    }
    // The Hyp walk goes beyond 2^96; the other two stay within their width.
    const Mpz von = ArgumentLesen(f.von, "FROM"), bis = ArgumentLesen(f.bis, "TO");
    if (mpz_cmp(von, bis) > 0)
        throw CliFehler("teileranalyse: FROM " + ZahlText(von) + " is greater than TO " + ZahlText(bis));
    if (a.breite == TeilerBreite::Long && mpz_cmp_ui(bis.get(), GrenzeLong) > 0)
        throw CliFehler("teileranalyse: TO above 2000000000 needs --width dec or hyp");
    if (a.breite == TeilerBreite::Decimal && mpz_sizeinbase(bis, 2) > 96)
        throw CliFehler("teileranalyse: TO above 2^96-1 needs --width hyp");
    a.start = ZahlText(von);
    a.ende = ZahlText(bis);
    a.bisPrim = GrenzeLong;
    if (!f.exponent.empty()) {
        if (!f.kFilter.empty() || !f.minExp.empty() || !f.maxExp.empty() || !f.klasse.empty())
            throw CliFehler("teileranalyse: --exponent excludes --kfilter, --min-exp, --max-exp and --class");
        a.spezial = true;
        a.bisPrim = exponentLesen(f.exponent, "--exponent");
    }
    if (!f.maxExp.empty()) a.bisPrim = exponentLesen(f.maxExp, "--max-exp");
    if (!f.minExp.empty()) a.potenz = int32_t(exponentLesen(f.minExp, "--min-exp"));
    if (!f.kFilter.empty()) {
        const Decimal k = ZahlLesen(f.kFilter, "--kfilter");
        const int64_t w = k > Decimal(536870912) ? 0 : k.AlsInt64();
        if (w < 1 || (w & (w - 1)) != 0)
            throw CliFehler("teileranalyse: --kfilter must be a power of two from 1 to 536870912");
        a.kFilter = k.Text();
    }
    if (!f.klasse.empty()) {
        if (f.klasse != "1" && f.klasse != "7") throw CliFehler("teileranalyse: --class must be 1 or 7");
        a.modulo = f.klasse == "1" ? 1 : 2;
    }
    // The word walk needs the raster up to TO; the wide walks sieve above it by small primes.
    const Decimal rasterBis = mpz_cmp_ui(bis.get(), GrenzeLong) > 0 ? Decimal(GrenzeLong) : Decimal::ausText(ZahlText(bis));
    RasterBereitstellen(f.raster, rasterBis < Decimal(1000) ? Decimal(1000) : rasterBis);
    if (a.breite == TeilerBreite::Long && rasterBis > PrimaerGrenze)
        throw CliFehler("teileranalyse: the raster ends at " + PrimaerGrenze.Text() + ", below TO; the word width needs it up to TO");
    if (!f.ordner.empty()) {
        DbOrtWaehlen(f.ordner, "teileranalyse", true);
        a.db = true;
    }
    const Decimal vonD = mpz_sizeinbase(von, 2) > 96 ? Decimal(0) : Decimal::ausText(a.start);
    const Decimal bisD = mpz_sizeinbase(bis, 2) > 96 ? Decimal(0) : Decimal::ausText(a.ende);
    AnalyseAusgabe ausgabe(vonD, bisD, f.json);
    ausgabe.db = a.db;
    TeilerAnalyse analyse(a, ausgabe);
    const double start = Timer();
    try {
        if (!analyse.Laufen()) {
            const std::string m = Terminal().LetzteMeldung();
            throw CliFehler("teileranalyse: " + (m.empty() ? std::string("refused") : m));
        }
    } catch (const Abgebrochen&) {
        Terminal().FortschrittBeenden();
        std::fprintf(stderr, "sw-cli: teileranalyse: stopped; FROM %s goes on exactly there\n", analyse.Naechstes().c_str());
        throw;
    }
    Terminal().FortschrittBeenden();
    const double sekunden = Timer() - start;
    if (f.json) {
        JsonObjekt j;
        j.Zahl("from", a.start).Zahl("to", a.ende).Zahl("next", analyse.Naechstes());
        j.Zahl("hits", std::to_string(ausgabe.Faktor)).Zahl("composite", std::to_string(analyse.Zusammengesetzt()));
        j.Kommazahl("seconds", sekunden).Roh("divisors", "[" + ausgabe.Liste() + "]");
        std::printf("%s\n", j.Ende().c_str());
        return;
    }
    std::printf("%d hits (%lld composite), next q %s, %.3f s\n", ausgabe.Faktor,
                static_cast<long long>(analyse.Zusammengesetzt()), analyse.Naechstes().c_str(), sekunden);
}

}  // namespace

void TeilerAnalyseBefehlAnmelden(CLI::App& app, std::function<void()>& auftrag) {
    auto f = std::make_shared<AnalyseFrage>();
    CLI::App* sub =
        app.add_subcommand("teileranalyse", "the primes q in [FROM, TO] and the Mersenne numbers 2^p-1 they divide");
    sub->add_option("FROM", f->von, "the first q")->required();
    sub->add_option("TO", f->bis, "the last q")->required();
    sub->add_option("--kfilter", f->kFilter, "only q = 2kp+1 with k a multiple of this power of two");
    sub->add_option("--min-exp", f->minExp, "the smallest exponent of interest (at least 11)");
    sub->add_option("--max-exp", f->maxExp, "the largest exponent of interest");
    sub->add_option("--exponent", f->exponent, "only the divisors of 2^P-1");
    sub->add_option("--class", f->klasse, "only q = 1 or only q = 7 mod 8");
    sub->add_option("--width", f->breite, "long (words, inside the raster), dec (up to 2^96) or hyp (any size)");
    sub->add_option("--limit", f->raster.limit, "sieve the raster up to this limit (default: TO)");
    sub->add_option("--block", f->raster.block, "load the raster from this block file");
    sub->add_option("--db", f->ordner, "enter the divisors into the Mersenne database of this folder");
    sub->add_flag("--json", f->json, "print one JSON object: from, to, next, hits, composite, seconds, divisors");
    sub->callback([f, &auftrag]() { auftrag = [f]() { teileranalyse(*f); }; });
}

}  // namespace sw::cli
