#include "distribution/AbstandDatei.h"

#include <cerrno>
#include <cstdlib>

#include "frame/Texte.h"

namespace sw {

namespace {

// The fields of a row; a ";" at its end closes the last field rather than opening an empty one.
std::vector<std::string> Felder(const std::string& zeile) {
    std::vector<std::string> felder;
    size_t a = 0;
    while (a < zeile.size()) {
        size_t b = zeile.find(';', a);
        if (b == std::string::npos) b = zeile.size();
        felder.push_back(zeile.substr(a, b - a));
        a = b + 1;
    }
    return felder;
}

std::string Getrimmt(const std::string& s) {
    const size_t a = s.find_first_not_of(" \t\r");
    if (a == std::string::npos) return "";
    return s.substr(a, s.find_last_not_of(" \t\r") - a + 1);
}

bool GanzeZahl(const std::string& feld, int64_t& wert) {
    const std::string t = Getrimmt(feld);
    if (t.empty()) return false;
    char* ende = nullptr;
    errno = 0;
    const long long v = std::strtoll(t.c_str(), &ende, 10);
    if (errno || *ende) return false;
    wert = v;
    return true;
}

bool Kommazahl(const std::string& feld, double& wert) {
    std::string t = Getrimmt(feld);
    for (char& c : t) {
        if (c == ',') c = '.';
    }
    if (t.empty()) return false;
    char* ende = nullptr;
    const double v = std::strtod(t.c_str(), &ende);
    if (*ende) return false;
    wert = v;
    return true;
}

}  // namespace

std::string AbstandCsvText(const std::vector<std::vector<std::string>>& listen) {
    std::string text;
    for (size_t i = 0; i < listen.size(); ++i) {
        if (i) text += "\n";
        for (const std::string& zeile : listen[i]) text += zeile + "\n";
    }
    return text;
}

std::optional<AbstandTabelle> AbstandCsvLesen(const std::string& text, std::string& fehler) {
    // The first row of each list, with its line number for the message.
    std::vector<std::pair<size_t, std::string>> erste;
    bool inListe = false;
    size_t nummer = 0, a = 0;
    while (a <= text.size()) {
        size_t b = text.find('\n', a);
        if (b == std::string::npos) b = text.size();
        const std::string zeile = Getrimmt(text.substr(a, b - a));
        ++nummer;
        if (zeile.empty()) {
            inListe = false;
        } else if (!inListe) {
            erste.emplace_back(nummer, zeile);
            inListe = true;
        }
        a = b + 1;
    }
    if (erste.size() != 3) {
        fehler = TextP1(2100, static_cast<long long>(erste.size()));
        return std::nullopt;
    }
    AbstandTabelle t;
    const std::vector<std::string> f0 = Felder(erste[0].second), f1 = Felder(erste[1].second),
                                   f2 = Felder(erste[2].second);
    if (f0.size() != f1.size() || f0.size() != f2.size()) {
        fehler = Text(2101);
        return std::nullopt;
    }
    for (size_t i = 0; i < f0.size(); ++i) {
        int64_t d = 0, n = 0;
        double w = 0;
        const bool gut0 = GanzeZahl(f0[i], d), gut1 = gut0 && GanzeZahl(f1[i], n), gut2 = gut1 && Kommazahl(f2[i], w);
        if (!gut2) {
            const size_t liste = !gut0 ? 0 : !gut1 ? 1 : 2;
            const std::string& feld = (liste == 0 ? f0 : liste == 1 ? f1 : f2)[i];
            fehler = TextP1P2(2102, std::to_string(erste[liste].first), Getrimmt(feld));
            return std::nullopt;
        }
        t.differenzen.push_back(d);
        t.anzahlen.push_back(n);
        t.werte.push_back(w);
    }
    return t;
}

int32_t LueckenEinstellung(const std::string& key, const std::string& wert, int32_t vorgabe, int32_t hoechstens,
                           std::string& meldung) {
    if (Getrimmt(wert).empty()) return vorgabe;
    int64_t v = 0;
    if (GanzeZahl(wert, v) && v >= 0 && v <= hoechstens) return int32_t(v);
    meldung = TextP1P2(2103, key + "=" + Getrimmt(wert), std::to_string(vorgabe));
    return vorgabe;
}

}  // namespace sw
