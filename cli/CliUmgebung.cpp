#include "CliUmgebung.h"

#include <unistd.h>

#include <cstdio>
#include <cstring>
#include <filesystem>

#include "db/PgVerbindung.h"
#include "frame/Pfade.h"
#include "frame/basZentral.h"
#include "mersenne/basDB.h"
#include "sieve/PrimaerLauf.h"
#include "sieve/RasterTabellen.h"
#include "sieve/Blockdateien.h"

namespace sw::cli {

int CliOberflaeche::Meldung(const std::string& titel, const std::string& text, MeldungsSymbol symbol,
                            MeldungsKnoepfe knoepfe) {
    std::string zeile;
    for (char c : text) {
        if (c == '\r') continue;
        if (c == '\n') {
            if (!zeile.empty() && zeile.back() != ' ') zeile += ' ';
            continue;
        }
        zeile += c;
    }
    letzte_ = zeile.empty() ? titel : zeile;
    if (knoepfe == MeldungsKnoepfe::OK) return AntwortOK;
    // Questions are shown as the terminal always shows them, with the answer taken.
    return OberflaecheTerminal::Meldung(titel, text, symbol, knoepfe);
}

void CliOberflaeche::DoEvents() {
    OberflaecheTerminal::DoEvents();
    if (Abbruch) throw Abgebrochen{};
    static const bool terminal = ::isatty(STDERR_FILENO) == 1;
    if (!terminal) return;
    const double jetzt = Uhr();
    if (start_ < 0) start_ = gezeigt_ = jetzt;
    if (jetzt - gezeigt_ >= 1.0) {
        gezeigt_ = jetzt;
        zeile_ = true;
        std::fprintf(stderr, "\rsw-cli: working ... %.0f s (Ctrl-C stops)", jetzt - start_);
        std::fflush(stderr);
    }
}

void CliOberflaeche::FortschrittBeenden() {
    if (zeile_) std::fprintf(stderr, "\r\033[K");
    zeile_ = false;
}

std::string CliOberflaeche::LetzteMeldung() {
    std::string m;
    m.swap(letzte_);
    return m;
}

CliOberflaeche& Terminal() {
    static CliOberflaeche terminal;
    return terminal;
}

Bereich BereichLesen(const std::string& von, const std::string& bis, const std::string& frage) {
    Bereich b{ZahlLesen(von, "FROM"), ZahlLesen(bis, "TO")};
    if (b.von > b.bis) throw CliFehler(frage + ": FROM " + b.von.Text() + " is greater than TO " + b.bis.Text());
    return b;
}

bool RasterGewaehlt(const RasterWahl& wahl) { return !wahl.limit.empty() || !wahl.block.empty(); }

namespace {
[[noreturn]] void abgelehnt(const std::string& ersatz) {
    std::string m = Terminal().LetzteMeldung();
    throw CliFehler(m.empty() ? ersatz : m);
}
}  // namespace

void RasterBereitstellen(const RasterWahl& wahl, const Decimal& standardGrenze) {
    if (!wahl.block.empty() && !wahl.limit.empty()) throw CliFehler("--block and --limit exclude each other");
    if (!wahl.block.empty()) {
        if (!PrimaerBlockLaden(wahl.block)) abgelehnt("the block file cannot be loaded: " + wahl.block);
        if (!RasterEcht) {
            std::fprintf(stderr, "sw-cli: note: %s is not named like a block file (Pnnn.BLK); its content is taken as it stands\n",
                         wahl.block.c_str());
        }
        return;
    }
    const Decimal grenze = wahl.limit.empty() ? standardGrenze : ZahlLesen(wahl.limit, "--limit");
    if (!PrimaerLauf(grenze, MethodeProdukt)) abgelehnt("the raster cannot be built");
}

void DbOrtWaehlen(const std::string& ort, const std::string& befehl, bool anlegen) {
    if (ort.empty()) return;
    if (IstPgUrl(ort)) {
        DbOrdnerSetzen(ort);
        return;
    }
    if (anlegen) {
        std::error_code fehler;
        std::filesystem::create_directories(ort, fehler);
        if (fehler) throw CliFehler(befehl + ": cannot create the folder " + ort + ": " + fehler.message());
    } else if (!std::filesystem::is_directory(ort)) {
        throw CliFehler(befehl + ": no folder " + ort);
    }
    DbOrdnerSetzen(MitSchraegstrich(ort));
}

void ImRasterPruefen(const Decimal& n, const std::string& frage) {
    if (n > PrimaerGrenze) {
        throw CliFehler(frage + ": " + n.Text() + " lies beyond the raster's limit " + PrimaerGrenze.Text());
    }
}

void JsonObjekt::feld(const std::string& name) {
    if (!erstes_) inhalt_ << ",";
    erstes_ = false;
    inhalt_ << Zeichenkette(name) << ":";
}

JsonObjekt& JsonObjekt::Zahl(const std::string& name, const std::string& ziffern) {
    feld(name);
    inhalt_ << ziffern;
    return *this;
}

JsonObjekt& JsonObjekt::Kommazahl(const std::string& name, double wert) {
    feld(name);
    char puffer[32];
    std::snprintf(puffer, sizeof puffer, "%.6f", wert);
    inhalt_ << puffer;
    return *this;
}

JsonObjekt& JsonObjekt::Text(const std::string& name, const std::string& wert) {
    feld(name);
    inhalt_ << Zeichenkette(wert);
    return *this;
}

JsonObjekt& JsonObjekt::Wahr(const std::string& name, bool wert) {
    feld(name);
    inhalt_ << (wert ? "true" : "false");
    return *this;
}

JsonObjekt& JsonObjekt::Roh(const std::string& name, const std::string& json) {
    feld(name);
    inhalt_ << json;
    return *this;
}

std::string JsonObjekt::Zeichenkette(const std::string& s) {
    std::string r = "\"";
    for (unsigned char c : s) {
        if (c == '"' || c == '\\') {
            r += '\\';
            r += char(c);
        } else if (c < 0x20) {
            char puffer[8];
            std::snprintf(puffer, sizeof puffer, "\\u%04x", c);
            r += puffer;
        } else {
            r += char(c);
        }
    }
    return r + "\"";
}

void AusgabePuffer::zahl(unsigned __int128 v) {
    char z[40];
    int n = 0;
    do {
        z[n++] = char('0' + int(v % 10));
        v /= 10;
    } while (v);
    if (pos_ + 48 > sizeof daten_) leeren();
    while (n) daten_[pos_++] = z[--n];
}

void AusgabePuffer::text(const std::string& s) {
    if (pos_ + s.size() > sizeof daten_) leeren();
    if (s.size() > sizeof daten_) {
        if (ziel_) {
            *ziel_ += s;
        } else {
            std::fwrite(s.data(), 1, s.size(), stdout);
        }
        return;
    }
    std::memcpy(daten_ + pos_, s.data(), s.size());
    pos_ += s.size();
}

void AusgabePuffer::leeren() {
    if (ziel_) {
        ziel_->append(daten_, pos_);
        pos_ = 0;
        return;
    }
    Terminal().FortschrittBeenden();
    std::fwrite(daten_, 1, pos_, stdout);
    pos_ = 0;
}

}  // namespace sw::cli
