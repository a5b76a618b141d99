// DbImport: the two imports of divisor lists (see DbImport.h).
#include "mersenne/DbImport.h"

#include <gmp.h>

#include <fstream>

#include "frame/Laufzeitfehler.h"
#include "frame/Texte.h"
#include "frame/Zeichenketten.h"
#include "mersenne/basDB.h"
#include "sieve/RasterTabellen.h"

namespace sw {

namespace {

constexpr size_t kHoechstStellen = 10000;  // longer factors are no plausible list entry

bool nurZiffern(std::string_view s) {
    return !s.empty() && s.find_first_not_of("0123456789") == std::string_view::npos;
}

// Judges exponent and factor texts already cut out of a line.
ImportZeile beurteilen(std::string_view exponent, std::string_view faktor) {
    ImportZeile z;
    z.art = ImportArt::Kaputt;
    if (!nurZiffern(exponent) || !nurZiffern(faktor) || faktor.size() > kHoechstStellen) {
        z.grund = Text(1511);
        return z;
    }
    if (exponent.size() > 10 || std::stoll(std::string(exponent)) < 2 || std::stoll(std::string(exponent)) > GrenzeLong) {
        z.grund = Text(1512);
        return z;
    }
    z.exponent = int32_t(std::stoll(std::string(exponent)));
    z.faktor = std::string(faktor);
    if (!TeiltMersenne(z.faktor, z.exponent)) {
        z.grund = Text(1514);
        return z;
    }
    z.art = ImportArt::Gut;
    return z;
}

std::string_view getrimmt(std::string_view s) {
    const size_t a = s.find_first_not_of(" \t\r\n");
    if (a == std::string_view::npos) return {};
    return s.substr(a, s.find_last_not_of(" \t\r\n") - a + 1);
}

std::ifstream oeffnen(const std::string& datei) {
    std::ifstream f(datei, std::ios::binary);
    if (!f) throw Laufzeitfehler(FehlerDateiNichtGefunden, FehlerBeschreibung(FehlerDateiNichtGefunden) + ": " + datei);
    return f;
}

// Stores one checked divisor. Exponents of known primes and divisors that stand there already
// change nothing; a further divisor joins the list (never dropped).
void eintragen(const ImportZeile& z, bool web, ImportBericht& b) {
    const PrimZeile alt = PrimZeileLesen(z.exponent);
    if (alt.mersenne == 1 || TeilerInListe(alt.teiler, z.faktor)) {
        ++b.bekannt;
        return;
    }
    const bool erster = alt.mersenne == 0 || alt.teiler == "0";
    const std::string teiler = erster ? z.faktor : alt.teiler + "x" + z.faktor;
    ++(erster ? b.neu : b.weitereTeiler);
    if (web) {
        PrimSchreibenImport(z.exponent, 2, teiler, alt.teilerPot);
    } else {
        PrimSchreiben(z.exponent, 2, teiler, erster ? GrenzeLong : alt.teilerPot);
    }
}

}  // namespace

bool TeiltMersenne(const std::string& q, int32_t p) {
    if (p < 2 || !nurZiffern(q)) return false;
    mpz_t n, r;
    mpz_init_set_str(n, q.c_str(), 10);
    mpz_init(r);
    bool teilt = false;
    // A proper divisor only: 2^p - 1 itself is no finding.
    if (mpz_cmp_ui(n, 1) > 0 && mpz_sizeinbase(n, 2) <= size_t(p)) {
        mpz_set_ui(r, 2);
        mpz_powm_ui(r, r, uint64_t(p), n);
        mpz_add_ui(n, n, 1);
        const bool ganz = mpz_popcount(n) == 1 && mpz_scan1(n, 0) == uint64_t(p);
        teilt = mpz_cmp_ui(r, 1) == 0 && !ganz;
    }
    mpz_clears(n, r, nullptr);
    return teilt;
}

ImportZeile ListenZeileLesen(std::string_view zeile) {
    const size_t komma = zeile.find(',');
    if (komma == std::string_view::npos) return {};
    return beurteilen(getrimmt(zeile.substr(0, komma)), getrimmt(zeile.substr(komma + 1)));
}

ImportZeile WebZeileLesen(std::string_view zeile) {
    zeile = getrimmt(zeile);
    const size_t trenner = zeile.find_first_of(" \t,");
    if (trenner == std::string_view::npos) return {};
    std::string_view rest = getrimmt(zeile.substr(trenner + 1));
    rest = rest.substr(0, rest.find_first_of(" \t,"));
    return beurteilen(zeile.substr(0, trenner), rest);
}

bool IstWebseite(const std::string& datei) {
    std::ifstream f = oeffnen(datei);
    std::string zeile;
    while (std::getline(f, zeile)) {
        if (zeile.rfind("Exponent,Factor", 0) == 0) return true;
    }
    return false;
}

ImportBericht ListeImportieren(const std::string& datei) {
    std::ifstream f = oeffnen(datei);
    ImportBericht b;
    DbTransaktion t;
    std::string zeile;
    for (int64_t nummer = 1; std::getline(f, zeile); ++nummer) {
        const ImportZeile z = ListenZeileLesen(zeile);
        if (z.art == ImportArt::Leer) continue;
        if (z.art == ImportArt::Kaputt) {
            t.Festschreiben();
            throw Laufzeitfehler(DbFehlerNummer, TextP1P2(1510, std::to_string(nummer),
                                                          z.grund + ": \"" + Trimmen(zeile) + "\""));
        }
        eintragen(z, false, b);
        t.FestschreibenNach();
    }
    t.Festschreiben();
    return b;
}

ImportBericht WebseiteImportieren(const std::string& datei) {
    std::ifstream f = oeffnen(datei);
    ImportBericht b;
    std::string zeile;
    bool kopf = false;
    while (!kopf && std::getline(f, zeile)) kopf = zeile.rfind("Exponent,Factor", 0) == 0;
    if (!kopf) throw Laufzeitfehler(DbFehlerNummer, TextP1(1519, datei));
    DbTransaktion t;
    while (std::getline(f, zeile) && zeile.find("</pre>") == std::string::npos) {
        const ImportZeile z = WebZeileLesen(zeile);
        if (z.art == ImportArt::Leer) continue;
        if (z.art == ImportArt::Kaputt) {
            ++b.uebersprungen;
            continue;
        }
        eintragen(z, true, b);
        t.FestschreibenNach();
    }
    t.Festschreiben();
    return b;
}

ImportBericht DateiImportieren(const std::string& datei) {
    return IstWebseite(datei) ? WebseiteImportieren(datei) : ListeImportieren(datei);
}

}  // namespace sw
