#include "frame/Meldungen.h"

#include "frame/Oberflaeche.h"
#include "frame/Texte.h"

namespace sw {

namespace {
void info(const std::string& titel, const std::string& text) {
    UI().Meldung(titel, text, MeldungsSymbol::Information, MeldungsKnoepfe::OK);
}
std::string nummer(const Laufzeitfehler& f) { return std::to_string(f.Nummer()); }

// The error boxes are shown by handlers that have just caught a run-time error. Should the
// text table itself be unreadable, they must not throw a second one out of the handler:
// they show why the text is missing, and the error they were asked to show.
std::string textOderGrund(int key) {
    try {
        return Text(key);
    } catch (const Laufzeitfehler& e) {
        return e.Beschreibung();
    }
}

// Text key with the error's number and description as #P1 and #P2.
std::string mitFehler(int key, const Laufzeitfehler& fehler) {
    try {
        return TextP1P2(key, nummer(fehler), fehler.Beschreibung());
    } catch (const Laufzeitfehler& e) {
        return e.Beschreibung() + "\nNr.: " + nummer(fehler) + " " + fehler.Beschreibung();
    }
}
}  // namespace

void MsgInfo(int key) { info("SW - Info", Text(key)); }
void MsgInfoText(const std::string& text) { info("SW - Info", text); }
void MsgInfoP1(int key, const std::string& p1) { info("SW - Info", TextP1(key, p1)); }
void MsgInfoP1P2(int key, const std::string& p1, const std::string& p2) {
    info("SW - Info", TextP1P2(key, p1, p2));
}

int MsgFrage(int key) {
    return UI().Meldung("SW - ???", Text(key), MeldungsSymbol::Frage, MeldungsKnoepfe::JaNein);
}

std::string FehlerText(int key, const Laufzeitfehler& fehler) {
    return textOderGrund(key) + "\n" + "Nr.: " + nummer(fehler) + " " + fehler.Beschreibung();
}

void MsgFehler(int key, const Laufzeitfehler& fehler) {
    UI().Meldung("SW - Fehler", FehlerText(key, fehler), MeldungsSymbol::Stopp, MeldungsKnoepfe::OK);
}

void MsgSpeicher(const Laufzeitfehler& fehler) {
    info("SW - Speicher", mitFehler(204, fehler));
}

void MsgLimit(const Laufzeitfehler& fehler) {
    info("SW - Grenze", mitFehler(205, fehler));
}

void MsgNichtImplementiert() { info("SW - Nicht verfügbar", Text(203)); }
void MsgLaufwerk() { info("SW - Laufwerk", Text(206)); }
void MsgBereich() { info("SW - Info", Text(207)); }
void MsgLimit512() { info("SW - Info", Text(512)); }

int MsgEndeFrage() {
    return UI().Meldung("SW-Stop?", Text(491), MeldungsSymbol::Frage, MeldungsKnoepfe::JaNeinAbbrechen);
}

}  // namespace sw
