// The arithmetic of the step-count graphic.
#include "collatz/CollatzGrafik.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>

#include "arith/HypText.h"
#include "arith/basHyper.h"
#include "collatz/CollatzUmbruch.h"
#include "collatz/basCollatz.h"
#include "frame/Laufzeitfehler.h"
#include "frame/Oberflaeche.h"
#include "frame/Texte.h"
#include "frame/Zahlformat.h"
#include "frame/basZentral.h"
#include "zahlkern/zahlkern.h"

namespace sw {

namespace {

// A whole number typed into a pixel field; anything else gives the fallback.
int64_t ganz(const std::string& text, int64_t sonst) {
    const std::string t = ZahlBereinigt(text);
    int64_t v = 0;
    const auto [p, ec] = std::from_chars(t.data(), t.data() + t.size(), v);
    return ec == std::errc() && p == t.data() + t.size() ? v : sonst;
}

// Pixel sizes beyond this fit no screen; the bound keeps every product within int32.
constexpr int64_t kPixelMax = 10000;

int32_t pixel(const std::string& text, int32_t minimum) {
    return int32_t(std::clamp<int64_t>(ganz(text, minimum), minimum, kPixelMax));
}

void mpzAusInt64(mpz_ptr z, int64_t v) {
    mpz_set_ui(z, static_cast<unsigned long>(v < 0 ? -uint64_t(v) : uint64_t(v)));
    if (v < 0) mpz_neg(z, z);
}

bool passt64(const Mpz& z) { return mpz_sgn(z.get()) >= 0 && mpz_sizeinbase(z.get(), 2) <= 64; }

uint64_t alsU64(const Mpz& z) {
    uint64_t v = 0;
    mpz_export(&v, nullptr, -1, sizeof v, 0, 0, z.get());
    return v;
}

}  // namespace

Mpz GrafikGrenze() {
    Mpz g;
    mpz_ui_pow_ui(g.get(), 2, 59);
    return g;
}

bool GrafikLesen(CollatzGrafik& g, const std::string& von, const std::string& plus, const std::string& zahlenBreite,
                 const std::string& linienHoehe, const std::string& linienAbstand, const std::string& fixMin) {
    // A Hyp carries no sign: a typed minus would be lost in it, and every negative start lies
    // below 1 anyway.
    const std::string roh = ZahlBereinigt(von);
    if (!roh.empty() && roh[0] == '-') return false;
    // The evaluator reads what it can of a plain text; a start must be digits or a formula,
    // else the user would see a graphic of a number he never typed.
    const bool formel = roh.rfind(FormelWort(), 0) == 0;
    if (!formel && (roh.empty() || roh.find_first_not_of("0123456789") != std::string::npos))
        throw Laufzeitfehler(13, TextP1(2000, von));
    const Mpz start(Formel2Hyp(von));
    if (mpz_sgn(start.get()) <= 0) return false;
    if (!g.OhneGrenze && mpz_cmp(start.get(), GrafikGrenze().get()) > 0) return false;
    g.Von = start;
    g.Schritt = std::max<int64_t>(1, ganz(plus, 1));
    g.ZahlenBreite = pixel(zahlenBreite, 1);
    g.LinienHoehe = pixel(linienHoehe, 0);
    g.LinienAbstand = pixel(linienAbstand, 1);
    g.FixMin = int32_t(std::clamp<int64_t>(ganz(fixMin, 0), 0, 1 << 30));
    return true;
}

Mpz GrafikWert(const CollatzGrafik& g, int64_t index) {
    Mpz d, w(g.Von);
    mpzAusInt64(d.get(), g.Schritt);
    mpz_mul_si(d.get(), d.get(), long(index));
    mpz_add(w.get(), w.get(), d.get());
    return w;
}

bool GrafikZaehlen(const Mpz& wert, int32_t& schritte) {
    if (mpz_sizeinbase(wert.get(), 2) <= 96) {
        const Decimal d = Decimal::ausText(Hyp2Text(MpzZuHyp(wert.get())));
        schritte = aUlamAnzi(&d);
        return true;
    }
    CollatzZahl = MpzZuHyp(wert.get());
    int32_t mult = 0;
    return CollatzZaehlen(schritte, mult);
}

bool GrafikFuellen(CollatzGrafik& g, int32_t breite) {
    const int32_t anzahl = std::max(breite, 0) / std::max(g.ZahlenBreite, 1) + 1;
    g.Werte.assign(size_t(anzahl), 0);
    mpzAusInt64(g.Spanne.get(), g.Schritt);
    mpz_mul_ui(g.Spanne.get(), g.Spanne.get(), static_cast<unsigned long>(anzahl));
    const int32_t maxAlt = g.MaxWert;
    int32_t minWert = 9999, maxWert = 0;
    const auto nehmen = [&](int32_t v) {
        if (!g.Maximal) {
            minWert = std::min(minWert, v);
            maxWert = std::max(maxWert, v);
        } else if (v > maxWert) {
            // Only records lower the minimum here: the scale then starts near the first large
            // value instead of at the few short walks of a range.
            maxWert = v;
            minWert = std::min(minWert, v);
        }
    };
    bool fertig = true;
    const Mpz letzter = GrafikWert(g, anzahl - 1);
    if (passt64(letzter)) {
        // The usual case, every start below 2^64: the starts go in a machine word and straight
        // to the library's count, without a big number per column.
        const uint64_t von = alsU64(g.Von), schritt = uint64_t(g.Schritt);
        for (int32_t i = 0; i < anzahl; ++i) {
            const Decimal d(von + uint64_t(i) * schritt);
            g.Werte[size_t(i)] = aUlamAnzi(&d);
            nehmen(g.Werte[size_t(i)]);
        }
    } else {
        for (int32_t i = 0; i < anzahl && fertig; ++i) {
            fertig = GrafikZaehlen(GrafikWert(g, i), g.Werte[size_t(i)]);
            if (fertig) nehmen(g.Werte[size_t(i)]);
            DoEvents();
            if (Abbruch) fertig = false;
        }
    }
    g.MinWert = std::max(minWert, 5);
    g.MaxWert = std::max(maxWert, maxAlt);
    if (g.FixMin > 0) g.MinWert = g.FixMin;
    return fertig;
}

GrafikLinien NormalLinien(const CollatzGrafik& g, int32_t hoehe, int32_t kopf) {
    GrafikLinien l;
    l.erste = g.MinWert + g.Verschiebung;
    const int32_t frei = hoehe - kopf - g.LinienHoehe;
    if (frei < 0) return l;
    // The count of lines that fit comes in one division; the line of v stands at
    // (LinienHoehe + LinienAbstand) * (v - erste) + LinienHoehe above the foot.
    const int32_t passen = frei / (g.LinienHoehe + g.LinienAbstand) + 1;
    l.letzte = std::min(g.MaxWert, l.erste + passen - 1);
    return l;
}

int32_t NormalZeile(const CollatzGrafik& g, int32_t v, int32_t hoehe) {
    const int32_t abstand = (g.LinienHoehe + g.LinienAbstand) * (v - (g.MinWert + g.Verschiebung)) + g.LinienHoehe;
    return std::min(hoehe - abstand, hoehe - std::max(g.LinienHoehe, 1));
}

int32_t MaximalZeile(const CollatzGrafik& g, int32_t v, int32_t hoehe) {
    const double spanne = double(g.MaxWert - g.MinWert + 1) * 1.05;
    return hoehe - int32_t(std::lround(double(v - g.MinWert) * hoehe / spanne));
}

int32_t MaximalSkalenWert(const CollatzGrafik& g, int32_t position, int32_t hoehe) {
    const double spanne = double(g.MaxWert - g.MinWert + 1) * 1.05;
    return int32_t(std::lround(double(position) / hoehe * spanne)) + g.MinWert;
}

std::optional<GrafikHover> GrafikHoverText(const CollatzGrafik& g, int32_t x, bool kurz) {
    if (x < 0) return std::nullopt;
    const int64_t index = x / std::max(g.ZahlenBreite, 1);
    if (index >= int64_t(g.Werte.size())) return std::nullopt;
    GrafikHover h;
    h.index = index;
    const Mpz wert = GrafikWert(g, index);
    CollatzZahl = MpzZuHyp(wert.get());
    const std::string anzeige = Hyp2Anzeige(CollatzZahl);
    std::string marken = CollatzFolgeHyp(0, 0, 0);
    h.i = int32_t(marken.size());
    h.m = int32_t(std::count(marken.begin(), marken.end(), '!'));
    if (kurz) {
        std::string k = "(k)";
        k.reserve(marken.size());
        for (size_t p = 0; p < marken.size(); ++p) {
            k.push_back(marken[p]);
            if (marken[p] == '!' && p + 1 < marken.size() && marken[p + 1] == '.') ++p;
        }
        marken = std::move(k);
    }
    h.text = anzeige + " i.m=" + std::to_string(h.i) + "." + std::to_string(h.m) + " " + marken;
    // 2^i / 6^m leaves the double range long before the starts do, so the quotient is taken
    // in logarithms; the value's own logarithm comes from its top 53 bits and exponent.
    long exponent = 0;
    const double mantisse = mpz_get_d_2exp(&exponent, wert.get());
    const double lnWert = std::log(mantisse) + double(exponent) * std::log(2.0);
    const double prozent = 100.0 * std::exp(lnWert - h.i * std::log(2.0) + h.m * std::log(6.0));
    char puffer[64];
    std::snprintf(puffer, sizeof puffer, "%.5f %%", prozent);
    h.prozent = puffer;
    return h;
}

std::vector<std::string> GrafikHoverZeilen(const std::string& text, int32_t breite) {
    if (breite < 1) return {text};
    return ZeilenUmbrechen(text, breite, [](const char*, int32_t) { return 1; });
}

Mpz GrafikDistanz(const CollatzGrafik& g, const std::string& nav, int32_t nummer) {
    std::vector<std::string> teile(1);
    for (char c : nav) {
        if (c == ';' || c == ' ') {
            teile.emplace_back();
        } else {
            teile.back().push_back(c);
        }
    }
    teile.erase(std::remove(teile.begin(), teile.end(), std::string()), teile.end());
    if (nummer < 0 || size_t(nummer) >= teile.size()) return g.Spanne;
    const Mpz d(Formel2Hyp(teile[size_t(nummer)]));
    return mpz_sgn(d.get()) > 0 ? d : g.Spanne;
}

Mpz GrafikVerschieben(const Mpz& von, const Mpz& distanz, bool vor) {
    Mpz neu(von);
    if (vor) {
        mpz_add(neu.get(), neu.get(), distanz.get());
    } else {
        mpz_sub(neu.get(), neu.get(), distanz.get());
        if (mpz_cmp_ui(neu.get(), 1) < 0) mpz_set_ui(neu.get(), 1);
    }
    return neu;
}

Mpz GrafikNavigation(CollatzGrafik& g, int32_t code, const std::string& nav, int32_t zeilen) {
    switch (code) {
        case 0: return GrafikVerschieben(g.Von, GrafikDistanz(g, nav, 2), false);
        case 1: return GrafikVerschieben(g.Von, g.Spanne, false);
        case 2: g.Verschiebung += std::max(zeilen / 2, 1); return g.Von;
        case 3: g.Verschiebung = std::max(g.Verschiebung - std::max(zeilen / 2, 1), 0); return g.Von;
        case 4: return GrafikVerschieben(g.Von, g.Spanne, true);
        default: return GrafikVerschieben(g.Von, GrafikDistanz(g, nav, 2), true);
    }
}

std::string GrafikCsv(const CollatzGrafik& g) {
    std::string csv = "Zahl;Schritte\n";
    for (size_t i = 0; i < g.Werte.size(); ++i) {
        const Mpz w = GrafikWert(g, int64_t(i));
        csv += Hyp2Text(MpzZuHyp(w.get())) + ";" + std::to_string(g.Werte[i]) + "\n";
    }
    return csv;
}

}  // namespace sw
