#include "frame/Einstellungen.h"

#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <system_error>
#include <vector>

#include "frame/DateiErsetzen.h"
#include "frame/Pfade.h"
#include "frame/Zahlformat.h"
#include "frame/Zeichenketten.h"

namespace sw {

namespace {

struct IniInhalt {
    std::vector<std::string> zeilen;  // without line ends
    bool crlf = false;                // the file's line ends, kept on rewrite
};

// Writes grouped by IniSammelSchreiben wait here; reads see them.
std::optional<IniInhalt> gesammelt;
std::string gesammeltPfad;
int sammelTiefe = 0;
bool gesammeltGeaendert = false;

// The file's lines, or nullopt if it exists but cannot be read (a write must then leave it
// alone rather than replace it with a file that holds only the new key).
std::optional<IniInhalt> dateiLesen(const std::string& pfad) {
    IniInhalt inhalt;
    std::FILE* f = std::fopen(pfad.c_str(), "rb");
    if (!f) {
        if (errno == ENOENT) return inhalt;
        return std::nullopt;
    }
    std::string text;
    char puffer[8192];
    size_t n;
    while ((n = std::fread(puffer, 1, sizeof puffer, f)) > 0) text.append(puffer, n);
    bool fehler = std::ferror(f) != 0;
    std::fclose(f);
    if (fehler) return std::nullopt;

    size_t start = 0;
    while (start < text.size()) {
        size_t ende = text.find('\n', start);
        std::string zeile = text.substr(start, ende == std::string::npos ? std::string::npos : ende - start);
        if (!zeile.empty() && zeile.back() == '\r') {
            zeile.pop_back();
            inhalt.crlf = true;
        }
        inhalt.zeilen.push_back(std::move(zeile));
        if (ende == std::string::npos) break;
        start = ende + 1;
    }
    return inhalt;
}

// The name of a section heading "[name]" (blanks inside the brackets do not count).
bool istSektion(const std::string& zeile, std::string& name) {
    std::string t = Trimmen(zeile);
    if (t.empty() || t[0] != '[') return false;
    size_t zu = t.find(']');
    if (zu == std::string::npos) return false;
    name = Trimmen(t.substr(1, zu - 1));
    return true;
}

// A key line "key=value"; comment lines (";") are none.
bool istEintrag(const std::string& zeile, std::string& key, std::string& wert) {
    std::string t = Trimmen(zeile);
    if (t.empty() || t[0] == ';') return false;
    size_t gleich = t.find('=');
    if (gleich == std::string::npos) return false;
    key = Trimmen(t.substr(0, gleich));
    wert = Trimmen(t.substr(gleich + 1));
    return true;
}

struct Fundstelle {
    long long sektion = -1;    // line of the heading
    long long eintrag = -1;    // line of the key
    long long letzte = -1;     // last non-empty line of the section
};

Fundstelle suchen(const IniInhalt& inhalt, const std::string& sektion, const std::string& key) {
    Fundstelle f;
    const std::string s = Klein(sektion), k = Klein(key);
    bool drin = false;
    for (size_t i = 0; i < inhalt.zeilen.size(); ++i) {
        std::string name, schluessel, wert;
        if (istSektion(inhalt.zeilen[i], name)) {
            // Only the first section of a name counts, as with the platform's reader.
            if (drin) break;
            drin = f.sektion < 0 && Klein(name) == s;
            if (drin) f.sektion = f.letzte = static_cast<long long>(i);
            continue;
        }
        if (!drin) continue;
        if (!Trimmen(inhalt.zeilen[i]).empty()) f.letzte = static_cast<long long>(i);
        if (f.eintrag < 0 && istEintrag(inhalt.zeilen[i], schluessel, wert) && Klein(schluessel) == k) {
            f.eintrag = static_cast<long long>(i);
        }
    }
    return f;
}

std::string ohneZeilenwechsel(std::string s) {
    for (char& c : s) if (c == '\r' || c == '\n') c = ' ';
    return s;
}

// Replaces the file in one step; any failure leaves the old file as it was.
void dateiErsetzen(const std::string& pfad, const IniInhalt& inhalt) {
    namespace fs = std::filesystem;
    std::error_code ec;
    // A link to the settings file elsewhere stays a link: the file it names is replaced.
    std::string ziel = fs::is_symlink(pfad, ec) ? fs::weakly_canonical(pfad, ec).string() : pfad;
    if (ziel.empty()) return;

    std::string text;
    const char* ende = inhalt.crlf ? "\r\n" : "\n";
    for (const std::string& z : inhalt.zeilen) text += z + ende;

    DateiErsetzen(ziel, text);
}

void eintragSetzen(IniInhalt& inhalt, const std::string& sektion, const std::string& key, const std::string& wert) {
    std::string zeile = key + "=" + wert;
    Fundstelle f = suchen(inhalt, sektion, key);
    if (f.eintrag >= 0) {
        inhalt.zeilen[static_cast<size_t>(f.eintrag)] = zeile;
    } else if (f.sektion >= 0) {
        inhalt.zeilen.insert(inhalt.zeilen.begin() + f.letzte + 1, zeile);
    } else {
        // A trailing empty line (the file ended in a line break twice) is reused.
        while (!inhalt.zeilen.empty() && Trimmen(inhalt.zeilen.back()).empty()) inhalt.zeilen.pop_back();
        inhalt.zeilen.push_back("[" + sektion + "]");
        inhalt.zeilen.push_back(zeile);
    }
}

}  // namespace

std::string IniLesen(const std::string& sektion, const std::string& key) {
    std::optional<IniInhalt> datei;
    const IniInhalt* inhalt;
    if (gesammelt && gesammeltPfad == IniDateiPfad()) {
        inhalt = &*gesammelt;
    } else {
        datei = dateiLesen(IniDateiPfad());
        if (!datei) return "";
        inhalt = &*datei;
    }
    Fundstelle f = suchen(*inhalt, sektion, key);
    if (f.eintrag < 0) return "";
    std::string k, wert;
    istEintrag(inhalt->zeilen[static_cast<size_t>(f.eintrag)], k, wert);
    // The platform's reader takes a value out of matching quotes.
    if (wert.size() >= 2 && (wert.front() == '"' || wert.front() == '\'') && wert.back() == wert.front()) {
        wert = wert.substr(1, wert.size() - 2);
    }
    return ZeichenKappen(wert, IniWertLaenge);
}

void IniSchreiben(const std::string& sektion, const std::string& key, const std::string& wert) {
    std::string s = ohneZeilenwechsel(Trimmen(sektion)), k = ohneZeilenwechsel(Trimmen(key));
    if (s.empty() || k.empty()) return;
    std::string pfad = IniDateiPfad();
    if (gesammelt && gesammeltPfad == pfad) {
        eintragSetzen(*gesammelt, s, k, ohneZeilenwechsel(wert));
        gesammeltGeaendert = true;
        return;
    }
    std::optional<IniInhalt> inhalt = dateiLesen(pfad);
    if (!inhalt) return;
    eintragSetzen(*inhalt, s, k, ohneZeilenwechsel(wert));
    dateiErsetzen(pfad, *inhalt);
}

void IniSchreiben(const std::string& sektion, const std::string& key, long long wert) {
    IniSchreiben(sektion, key, std::to_string(wert));
}

void IniSchreibenDouble(const std::string& sektion, const std::string& key, double wert) {
    char puffer[400];
    auto [ende, ec] = std::to_chars(puffer, puffer + sizeof puffer, wert, std::chars_format::fixed, 2);
    std::string text = ec == std::errc() ? std::string(puffer, ende) : std::string();
    for (char& c : text) if (c == '.') c = ',';
    IniSchreiben(sektion, key, text);
}

double IniLesenDouble(const std::string& sektion, const std::string& key, double vorgabe) {
    std::string text = IniLesen(sektion, key);
    for (char& c : text) if (c == ',') c = '.';
    double v;
    if (!IstNumerisch(text, &v) || !std::isfinite(v)) return vorgabe;
    return v;
}

int32_t IniLesenLong(const std::string& sektion, const std::string& key, int32_t vorgabe) {
    double v;
    if (!IstNumerisch(IniLesen(sektion, key), &v)) return vorgabe;
    v = std::nearbyint(v);
    if (!(v >= -2147483648.0 && v <= 2147483647.0)) return vorgabe;
    return static_cast<int32_t>(v);
}

IniSammelSchreiben::IniSammelSchreiben() {
    if (sammelTiefe++ > 0) return;
    gesammeltPfad = IniDateiPfad();
    gesammelt = dateiLesen(gesammeltPfad);
    gesammeltGeaendert = false;
}

IniSammelSchreiben::~IniSammelSchreiben() {
    if (--sammelTiefe > 0) return;
    if (gesammelt && gesammeltGeaendert) dateiErsetzen(gesammeltPfad, *gesammelt);
    gesammelt.reset();
    gesammeltGeaendert = false;
}

}  // namespace sw
