// sw-cli db status|kclasses|gaps|bits|residues LO HI ...   [--db DIR] [--json]
// The analyses of the Mersenne database from the terminal: the settled share of each stretch
// with the classes of the divisors, k mod 4 by steps, the gaps between exponents with
// divisors, the low bits and the residues of k or of the divisor against p. They only read:
// the database files stay as they are. The prime counts need the raster to HI, sieved here.
#include <cstdio>
#include <memory>

#include "Argumente.h"
#include "Befehle.h"
#include "CliUmgebung.h"
#include "frame/Zahlformat.h"
#include "mersenne/MersenneStatistik.h"
#include "sieve/RasterTabellen.h"

namespace sw::cli {

namespace {

struct AnalyseFrage {
    std::string lo, hi;
    std::string skala = "1000000", schritt, kMax = "0", abstand = "100", modul, pModul = "1", bits = "3";
    std::string wert = "k";
    bool abstaende = false, nachAnzahl = false;
};

std::string z(int64_t n) { return std::to_string(n); }

int64_t zahl(const std::string& text, const std::string& was) { return ZahlLesen(text, was).AlsInt64(); }

void bereich(const AnalyseFrage& f, int64_t& lo, int64_t& hi) {
    lo = zahl(f.lo, "LO");
    hi = zahl(f.hi, "HI");
    if (lo < 0 || hi > GrenzeLong) throw CliFehler("db: LO and HI must lie in 0..2000000000");
    if (lo >= hi) throw CliFehler("db: LO must lie below HI");
}

void rasterBis(int64_t hi) { RasterBereitstellen({}, Decimal(std::max<int64_t>(hi, 1000))); }

AnalyseWert wertLesen(const std::string& w) {
    if (w == "k") return AnalyseWert::K;
    if (w == "q") return AnalyseWert::Teiler;
    throw CliFehler("db: --of takes k or q");
}

void status(const AnalyseFrage& f, bool json) {
    int64_t lo, hi;
    bereich(f, lo, hi);
    rasterBis(hi);
    const std::vector<StatusStrecke> strecken = StatusStrecken(lo, hi, zahl(f.skala, "--scale"));
    const KlassenUebersicht u = StatusKlassen(lo, hi);
    if (json) {
        std::string liste;
        for (const StatusStrecke& s : strecken) {
            JsonObjekt j;
            j.Zahl("from", z(s.von)).Zahl("below", z(s.bis)).Zahl("primes", z(s.primzahlen));
            j.Zahl("settled", z(s.erledigt)).Text("share", AnteilText(s.erledigt, s.primzahlen));
            liste += (liste.empty() ? "" : ",") + j.Ende();
        }
        JsonObjekt j;
        j.Roh("stretches", "[" + liste + "]").Zahl("with_divisor", z(u.zeilen)).Zahl("q_1_mod_8", z(u.q1));
        j.Zahl("q_7_mod_8", z(u.q7)).Zahl("p_1_mod_3", z(u.p3Eins)).Zahl("p_2_mod_3", z(u.p3Zwei));
        j.Zahl("p_1_mod_4", z(u.plus)).Zahl("p_3_mod_4", z(u.minus));
        std::printf("%s\n", j.Ende().c_str());
        return;
    }
    for (const StatusStrecke& s : strecken) {
        std::printf("[%lld, %lld): %lld of %lld primes settled  %s\n", (long long)s.von, (long long)s.bis,
                    (long long)s.erledigt, (long long)s.primzahlen, AnteilText(s.erledigt, s.primzahlen).c_str());
    }
    std::printf("with a divisor: %lld; q = 1 / 7 mod 8: %lld / %lld; p = 1 / 2 mod 3: %lld / %lld; "
                "p = 1 / 3 mod 4: %lld / %lld\n",
                (long long)u.zeilen, (long long)u.q1, (long long)u.q7, (long long)u.p3Eins, (long long)u.p3Zwei,
                (long long)u.plus, (long long)u.minus);
}

void kKlassen(const AnalyseFrage& f, bool json) {
    int64_t lo, hi;
    bereich(f, lo, hi);
    rasterBis(hi);
    const int64_t schritt = f.schritt.empty() ? hi - lo + 1 : zahl(f.schritt, "--step");
    const std::vector<KSchritt> schritte = KStatistik(lo, hi, schritt, zahl(f.kMax, "--kmax"));
    std::string liste;
    for (const KSchritt& s : schritte) {
        if (json) {
            JsonObjekt j;
            j.Zahl("from", z(s.von)).Zahl("to", z(s.bis)).Zahl("primes", z(s.primzahlen)).Zahl("with_divisor", z(s.alle));
            j.Zahl("k_0_mod_4", z(s.klasse[0])).Zahl("k_1_mod_4", z(s.klasse[1])).Zahl("k_3_mod_4", z(s.klasse[3]));
            liste += (liste.empty() ? "" : ",") + j.Ende();
            continue;
        }
        std::printf("%lld..%lld: %lld primes, %lld with a divisor; k = 0 / 1 / 3 mod 4: %lld / %lld / %lld\n",
                    (long long)s.von, (long long)s.bis, (long long)s.primzahlen, (long long)s.alle,
                    (long long)s.klasse[0], (long long)s.klasse[1], (long long)s.klasse[3]);
    }
    if (json) std::printf("[%s]\n", liste.c_str());
}

void luecken(const AnalyseFrage& f, bool json) {
    int64_t lo, hi;
    bereich(f, lo, hi);
    const bool nurLuecken = !f.abstaende;
    const std::vector<AbstandZeile> zeilen = Abstaende(lo, hi, zahl(f.abstand, "--max"), nurLuecken, f.nachAnzahl);
    std::string liste;
    for (const AbstandZeile& a : zeilen) {
        if (json) {
            JsonObjekt j;
            j.Zahl("difference", z(a.differenz)).Zahl("count", z(a.anzahl)).Kommazahl("percent", a.prozent);
            liste += (liste.empty() ? "" : ",") + j.Ende();
            continue;
        }
        std::printf("%s\n", AbstandText(a, nurLuecken).c_str());
    }
    if (json) std::printf("[%s]\n", liste.c_str());
}

void resteAusgeben(const RestTabelle& t, bool json, int bits) {
    const auto name = [&](int32_t r) {
        if (bits == 0) return z(r);
        std::string b;
        for (int i = bits - 1; i >= 0; --i) b += (r >> i) & 1 ? '1' : '0';
        return b;
    };
    if (json) {
        std::string zeilen;
        for (int32_t pr = 0; pr < t.pModulus; ++pr) {
            std::string werte;
            for (int32_t r = 0; r < t.modulus; ++r) werte += (r ? "," : "") + z(t.at(pr, r));
            zeilen += (pr ? "," : "") + std::string("[") + werte + "]";
        }
        JsonObjekt j;
        j.Zahl("modulus", z(t.modulus)).Zahl("p_modulus", z(t.pModulus)).Zahl("rows", z(t.zeilen));
        j.Zahl("skipped_lists", z(t.uebersprungen)).Roh("counts", "[" + zeilen + "]");
        std::printf("%s\n", j.Ende().c_str());
        return;
    }
    std::printf("%lld rows analysed, %lld with several divisors left out\n", (long long)t.zeilen,
                (long long)t.uebersprungen);
    for (int32_t pr = 0; pr < t.pModulus; ++pr) {
        for (int32_t r = 0; r < t.modulus; ++r) {
            if (t.at(pr, r) == 0) continue;
            if (t.pModulus > 1) std::printf("p = %d mod %d, ", pr, t.pModulus);
            std::printf("%s: %lld\n", name(r).c_str(), (long long)t.at(pr, r));
        }
    }
}

void bitAnalyse(const AnalyseFrage& f, bool json) {
    int64_t lo, hi;
    bereich(f, lo, hi);
    const int64_t bits = zahl(f.bits, "--bits");
    if (bits < 2 || bits > 5) throw CliFehler("db: --bits takes 2 to 5");
    resteAusgeben(RestAnalyse(lo, hi, wertLesen(f.wert), int32_t(1) << bits, 1), json, int(bits));
}

void restAnalyse(const AnalyseFrage& f, bool json) {
    int64_t lo, hi;
    bereich(f, lo, hi);
    const int64_t m = zahl(f.modul, "--mod"), pm = zahl(f.pModul, "--pmod");
    if (m < 1 || m > (1 << 20) || pm < 1 || pm > (1 << 10)) throw CliFehler("db: --mod takes 1..1048576, --pmod 1..1024");
    resteAusgeben(RestAnalyse(lo, hi, wertLesen(f.wert), int32_t(m), int32_t(pm)), json, 0);
}

}  // namespace

void DbAnalyseAnmelden(CLI::App* db, std::function<void()>& auftrag, const std::function<bool()>& vorbereiten) {
    auto f = std::make_shared<AnalyseFrage>();
    const auto befehl = [&auftrag, f, vorbereiten](CLI::App* sub, void (*was)(const AnalyseFrage&, bool)) {
        sub->add_option("LO", f->lo, "first exponent")->required();
        sub->add_option("HI", f->hi, "last exponent (status: the end of the last stretch)")->required();
        sub->callback([f, &auftrag, was, vorbereiten]() {
            auftrag = [f, was, vorbereiten]() { was(*f, vorbereiten()); };
        });
    };
    CLI::App* s = db->add_subcommand("status", "settled share of each stretch, and the classes of the divisors");
    s->add_option("--scale", f->skala, "width of a stretch (default 1000000)");
    befehl(s, status);
    CLI::App* k = db->add_subcommand("kclasses", "k of the divisors mod 4, step by step");
    k->add_option("--step", f->schritt, "width of a step (default: the whole range)");
    k->add_option("--kmax", f->kMax, "only divisors with k up to this (default: all)");
    befehl(k, kKlassen);
    CLI::App* g = db->add_subcommand("gaps", "gaps between exponents with divisors");
    g->add_option("--max", f->abstand, "largest difference counted (default 100)");
    g->add_flag("--distances", f->abstaende, "every difference of two exponents, not only neighbours");
    g->add_flag("--by-count", f->nachAnzahl, "order by count");
    befehl(g, luecken);
    CLI::App* b = db->add_subcommand("bits", "the low bits of k or of the divisor");
    b->add_option("--bits", f->bits, "2 to 5 (default 3)");
    b->add_option("--of", f->wert, "k or q (default k)");
    befehl(b, bitAnalyse);
    CLI::App* r = db->add_subcommand("residues", "residues of k or of the divisor against p");
    r->add_option("--mod", f->modul, "modulus of the value")->required();
    r->add_option("--pmod", f->pModul, "modulus of the exponent (default 1)");
    r->add_option("--of", f->wert, "k or q (default k)");
    befehl(r, restAnalyse);
}

}  // namespace sw::cli
