#include "frame/Texte.h"

#include <sys/stat.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <initializer_list>
#include <sstream>

#include "frame/Pfade.h"
#include "frame/Version.h"
#include "frame/Zahlformat.h"
#include "frame/Zeichenketten.h"

namespace sw {

namespace {

bool gueltigesUtf8(const std::string& s) {
    size_t i = 0, n = s.size();
    while (i < n) {
        unsigned char c = s[i];
        int folge = c < 0x80 ? 0 : (c >> 5) == 6 ? 1 : (c >> 4) == 14 ? 2 : (c >> 3) == 30 ? 3 : -1;
        if (folge < 0) return false;
        for (int k = 1; k <= folge; ++k) {
            if (i + k >= n || (static_cast<unsigned char>(s[i + k]) >> 6) != 2) return false;
        }
        i += folge + 1;
    }
    return true;
}

// sw.TEX files written on the old platform are Windows-1252; they are read as such.
std::string ausWindows1252(const std::string& s) {
    static const char16_t hoch[32] = {0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                      0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x8D,   0x017D, 0x8F,
                                      0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                      0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};
    std::string r;
    for (unsigned char c : s) {
        char32_t u = c < 0x80 ? c : (c < 0xA0 ? hoch[c - 0x80] : c);
        if (u < 0x80) {
            r += char(u);
        } else if (u < 0x800) {
            r += char(0xC0 | (u >> 6));
            r += char(0x80 | (u & 0x3F));
        } else {
            r += char(0xE0 | (u >> 12));
            r += char(0x80 | ((u >> 6) & 0x3F));
            r += char(0x80 | (u & 0x3F));
        }
    }
    return r;
}

struct TexCache {
    std::string pfad;
    long long groesse = -1;
    long long zeit = -1;
    unsigned long long inode = 0;  // a file replaced by rename is new even at equal size and time
    std::vector<std::string> zeilen;
    // The numbered entries in file order, their keys parsed once: windows look texts up per
    // row of a list, and parsing every line again for each lookup dominated long runs.
    std::vector<std::pair<double, std::string>> nummern;
};

bool numerisch(const std::string& s, double& wert) { return IstNumerisch(s, &wert); }

void nummernLesen(TexCache& cache) {
    cache.nummern.clear();
    for (const std::string& roh : cache.zeilen) {
        std::string zeile = Trimmen(roh);
        if (zeile.empty() || zeile[0] == ';') continue;
        size_t gleich = zeile.find('=');
        if (gleich == std::string::npos) continue;
        double nummer;
        if (!numerisch(zeile.substr(0, gleich), nummer)) continue;
        cache.nummern.emplace_back(nummer, RechtsTrimmen(zeile.substr(gleich + 1)));
    }
}

// sw.TEX, renewed when the file changed since the last lookup.
const TexCache& texDatei() {
    static TexCache cache;
    std::string pfad = TexDateiPfad();
    struct stat st {};
    if (::stat(pfad.c_str(), &st) != 0 || !S_ISREG(st.st_mode)) {
        throw Laufzeitfehler(FehlerDateiNichtGefunden, "Datei nicht gefunden: " + pfad);
    }
    long long zeit = static_cast<long long>(st.st_mtim.tv_sec) * 1000000000LL + st.st_mtim.tv_nsec;
    if (pfad == cache.pfad && st.st_size == cache.groesse && zeit == cache.zeit && st.st_ino == cache.inode) {
        return cache;
    }

    std::ifstream f(pfad, std::ios::binary);
    if (!f) throw Laufzeitfehler(FehlerZugriffVerweigert, "Zugriff verweigert: " + pfad);
    std::stringstream ss;
    ss << f.rdbuf();
    std::string inhalt = ss.str();
    if (inhalt.rfind("\xEF\xBB\xBF", 0) == 0) inhalt.erase(0, 3);
    if (!gueltigesUtf8(inhalt)) inhalt = ausWindows1252(inhalt);

    cache.zeilen.clear();
    std::string zeile;
    for (char c : inhalt) {
        if (c == '\n') {
            cache.zeilen.push_back(zeile);
            zeile.clear();
        } else {
            zeile += c;
        }
    }
    if (!zeile.empty()) cache.zeilen.push_back(zeile);
    cache.pfad = pfad;
    cache.groesse = st.st_size;
    cache.zeit = zeit;
    cache.inode = st.st_ino;
    nummernLesen(cache);
    return cache;
}

const std::vector<std::string>& texZeilen() { return texDatei().zeilen; }

// Replaces every mark of the list in one pass, ignoring case, so that what one
// replacement puts in (a parameter typed by the user) is never taken for another mark.
std::string ersetzen(const std::string& text, std::initializer_list<std::pair<std::string, std::string>> marken) {
    // Folding keeps every byte in place, so positions in k are positions in text.
    std::vector<std::pair<std::string, const std::string*>> m;
    for (const auto& [mark, ersatz] : marken) {
        if (!mark.empty()) m.emplace_back(Klein(mark), &ersatz);
    }
    const std::string k = Klein(text);
    std::string ergebnis;
    size_t i = 0;
    while (i < text.size()) {
        bool ersetzt = false;
        for (const auto& [mark, ersatz] : m) {
            if (k.compare(i, mark.size(), mark) == 0) {
                ergebnis += *ersatz;
                i += mark.size();
                ersetzt = true;
                break;
            }
        }
        if (!ersetzt) ergebnis += text[i++];
    }
    return ergebnis;
}

std::string platzhalterErsetzen(std::string text) {
    return ersetzen(text, {{"#V", VersionText()}, {"#CR", "\n"}});
}

}  // namespace

std::string ErsetzenOhneGross(std::string text, const std::string& mark, const std::string& ersatz) {
    return ersetzen(text, {{mark, ersatz}});
}

std::string VersionText() {
    return "Beta " + std::to_string(Version.major) + "." + std::to_string(Version.minor) + "." +
           std::to_string(Version.revision);
}

std::string Text(int key) {
    for (const auto& [nummer, roh] : texDatei().nummern) {
        if (nummer > key) return "";
        if (nummer == key) {
            std::string wert = roh;
            size_t strich = wert.find('|');
            if (strich != std::string::npos) wert = RechtsTrimmen(wert.substr(0, strich));
            return platzhalterErsetzen(wert);
        }
    }
    return "";
}

std::string TextP1(int key, const std::string& p1) { return ErsetzenOhneGross(Text(key), "#P1", p1); }

std::string TextP1(int key, long long p1) { return TextP1(key, std::to_string(p1)); }

std::string TextP1Zahl(int key, const Decimal& zahl) { return TextP1(key, ZahlFormat(zahl)); }

std::string TextP1P2(int key, const std::string& p1, const std::string& p2) {
    return ersetzen(Text(key), {{"#P1", p1}, {"#P2", p2}});
}

std::vector<int32_t> TextListe(int key) {
    std::vector<int32_t> liste;
    std::string text = Text(key);
    size_t start = 0;
    while (start <= text.size()) {
        size_t ende = text.find(';', start);
        std::string teil = Trimmen(text.substr(start, ende == std::string::npos ? std::string::npos : ende - start));
        if (!teil.empty()) liste.push_back(TextZuLong(teil));
        if (ende == std::string::npos) break;
        start = ende + 1;
    }
    return liste;
}

std::vector<TextPaar> SektionLesen(const std::string& sektion) {
    std::vector<TextPaar> paare;
    const std::string kopf = Klein("[" + sektion + "]");
    const std::vector<std::string>& zeilen = texZeilen();
    size_t i = 0;
    while (i < zeilen.size() && Klein(zeilen[i]).find(kopf) == std::string::npos) ++i;
    if (i == zeilen.size()) return paare;
    for (++i; i < zeilen.size(); ++i) {
        std::string zeile = Trimmen(zeilen[i]);
        if (!zeile.empty() && zeile[0] == '[') break;
        if (!zeile.empty() && zeile[0] == ';') continue;
        size_t gleich = zeile.find('=');
        if (gleich == std::string::npos) {
            paare.push_back({});
        } else {
            paare.push_back({Trimmen(zeile.substr(0, gleich)), zeile.substr(gleich + 1)});
        }
    }
    return paare;
}

std::string SektionTitel(const std::vector<TextPaar>& paare) {
    if (paare.empty()) return "";
    std::string t = ErsetzenOhneGross(paare.front().wert, "#V", VersionText());
    size_t strich = t.find('|');
    return strich == std::string::npos ? t : t.substr(0, strich);
}

bool SektionWert(const std::vector<TextPaar>& paare, const std::string& key, std::string& wert) {
    for (const TextPaar& p : paare) {
        if (GleichOhneGross(p.name, key)) {
            wert = p.wert;
            return true;
        }
    }
    return false;
}

SteuerText WertZerlegen(const std::string& wert) {
    SteuerText st;
    size_t strich = wert.rfind('|');
    if (strich == std::string::npos) {
        st.text = wert;
    } else {
        st.text = wert.substr(0, strich);
        st.tooltip = wert.substr(strich + 1);
        st.hatTooltip = true;
    }
    return st;
}

std::vector<std::string> ListenEintraege(const std::string& wert) {
    std::vector<std::string> eintraege;
    std::string rest = wert + "|";
    size_t start = 0, strich;
    while ((strich = rest.find('|', start)) != std::string::npos) {
        eintraege.push_back(rest.substr(start, strich - start));
        start = strich + 1;
    }
    return eintraege;
}

bool TextFeldUebernimmt(const std::string& text) {
    if (text.empty()) return false;
    double v;
    if (numerisch(ZahlBereinigt(text), v) && v > 2000000000.0) return false;
    return true;
}

}  // namespace sw
