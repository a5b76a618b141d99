#include "frame/TabellenText.h"

#include <algorithm>

#include "frame/Zeichenketten.h"

namespace sw {

namespace {

bool ziffer(char c) { return c >= '0' && c <= '9'; }

// A cell read as a number: sign, the digits before the decimal mark without leading zeros,
// those after it without trailing zeros. Zero has no sign.
struct ZahlTeile {
    bool negativ = false;
    std::string ganz, bruch;
};

// "." between digit groups of exactly three is the program's grouping ("1.234.567"); any other
// "." and every "," is the decimal mark. A blank or "'" between groups of three groups as well.
bool alsZahl(const std::string& zelle, ZahlTeile& z) {
    size_t i = 0;
    if (i < zelle.size() && (zelle[i] == '+' || zelle[i] == '-')) z.negativ = zelle[i++] == '-';
    if (i >= zelle.size() || !ziffer(zelle[i])) return false;
    std::string ganz, bruch;
    bool imBruch = false;
    while (i < zelle.size()) {
        const char c = zelle[i];
        if (ziffer(c)) {
            (imBruch ? bruch : ganz) += c;
            ++i;
            continue;
        }
        const bool dreier = i + 3 < zelle.size() && ziffer(zelle[i + 1]) && ziffer(zelle[i + 2]) &&
                            ziffer(zelle[i + 3]) && (i + 4 == zelle.size() || !ziffer(zelle[i + 4]));
        if (!imBruch && (c == '.' || c == ' ' || c == '\'') && dreier) {
            ++i;  // a group separator
            continue;
        }
        if (!imBruch && (c == '.' || c == ',') && i + 1 < zelle.size() && ziffer(zelle[i + 1])) {
            imBruch = true;
            ++i;
            continue;
        }
        return false;
    }
    const size_t erste = ganz.find_first_not_of('0');
    z.ganz = erste == std::string::npos ? "" : ganz.substr(erste);
    const size_t letzte = bruch.find_last_not_of('0');
    z.bruch = letzte == std::string::npos ? "" : bruch.substr(0, letzte + 1);
    if (z.ganz.empty() && z.bruch.empty()) z.negativ = false;
    return true;
}

int betragVergleich(const ZahlTeile& a, const ZahlTeile& b) {
    if (a.ganz.size() != b.ganz.size()) return a.ganz.size() < b.ganz.size() ? -1 : 1;
    if (const int c = a.ganz.compare(b.ganz); c != 0) return c < 0 ? -1 : 1;
    // Trailing zeros are gone, so the fractions compare as texts.
    if (const int c = a.bruch.compare(b.bruch); c != 0) return c < 0 ? -1 : 1;
    return 0;
}

int zahlVergleich(const ZahlTeile& a, const ZahlTeile& b) {
    if (a.negativ != b.negativ) return a.negativ ? -1 : 1;
    const int c = betragVergleich(a, b);
    return a.negativ ? -c : c;
}

// 0 a number, 1 text, 2 empty: the order of the groups.
int rang(const std::string& zelle, ZahlTeile& z) {
    if (zelle.empty()) return 2;
    return alsZahl(zelle, z) ? 0 : 1;
}

}  // namespace

std::vector<TabellenZeile> TabelleZerlegen(const std::vector<std::string>& zeilen) {
    std::vector<TabellenZeile> tabelle;
    for (const std::string& zeile : zeilen) {
        if (Trimmen(zeile).empty()) continue;
        TabellenZeile zellen;
        size_t anfang = 0;
        for (;;) {
            const size_t ende = zeile.find_first_of(";\t", anfang);
            zellen.push_back(Trimmen(zeile.substr(anfang, ende == std::string::npos ? std::string::npos : ende - anfang)));
            if (ende == std::string::npos) break;
            anfang = ende + 1;
        }
        tabelle.push_back(std::move(zellen));
    }
    return tabelle;
}

int ZellenVergleich(const std::string& a, const std::string& b) {
    ZahlTeile za, zb;
    const int ra = rang(a, za), rb = rang(b, zb);
    if (ra != rb) return ra < rb ? -1 : 1;
    if (ra == 0) return zahlVergleich(za, zb);
    const int c = a.compare(b);
    return c < 0 ? -1 : c > 0 ? 1 : 0;
}

void TabelleSortieren(std::vector<TabellenZeile>& zeilen, size_t spalte, bool absteigend) {
    // Each cell is read once, not at every comparison: long columns of long numbers.
    struct Schluessel {
        int rang;
        ZahlTeile zahl;
        const std::string* text;
    };
    static const std::string leer;
    std::vector<std::pair<Schluessel, TabellenZeile>> sortiert;
    sortiert.reserve(zeilen.size());
    for (TabellenZeile& z : zeilen) {
        Schluessel k{0, {}, nullptr};
        sortiert.push_back({k, std::move(z)});
        auto& [s, zeile] = sortiert.back();
        s.text = spalte < zeile.size() ? &zeile[spalte] : &leer;
        s.rang = rang(*s.text, s.zahl);
    }
    // The direction turns the order within numbers and within texts; texts stay behind the
    // numbers and empty cells last either way.
    std::stable_sort(sortiert.begin(), sortiert.end(), [&](const auto& x, const auto& y) {
        const Schluessel &a = x.first, &b = y.first;
        if (a.rang != b.rang) return a.rang < b.rang;
        if (a.rang == 2) return false;
        const int c = a.rang == 0 ? zahlVergleich(a.zahl, b.zahl) : a.text->compare(*b.text);
        return absteigend ? c > 0 : c < 0;
    });
    for (size_t i = 0; i < zeilen.size(); ++i) zeilen[i] = std::move(sortiert[i].second);
}

std::string TabelleCsv(const std::vector<TabellenZeile>& zeilen) {
    std::string text;
    for (const TabellenZeile& zeile : zeilen) {
        for (size_t i = 0; i < zeile.size(); ++i) {
            if (i > 0) text += ';';
            const std::string& f = zeile[i];
            if (f.find_first_of(";\"\r\n") == std::string::npos) {
                text += f;
                continue;
            }
            text += '"';
            for (char c : f) text += c == '"' ? std::string("\"\"") : std::string(1, c);
            text += '"';
        }
        text += '\n';
    }
    return text;
}

}  // namespace sw
