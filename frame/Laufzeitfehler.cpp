#include "frame/Laufzeitfehler.h"

namespace sw {

std::string FehlerBeschreibung(int nummer) {
    switch (nummer) {
        case FehlerUeberlauf: return "Überlauf";
        case FehlerKeinSpeicher: return "Nicht genügend Speicher";
        case FehlerDivisionDurchNull: return "Division durch Null";
        case FehlerTypenUnvertraeglich: return "Typen unverträglich";
        case FehlerDateiNichtGefunden: return "Datei nicht gefunden";
        case FehlerZugriffVerweigert: return "Zugriff verweigert";
        default: return "";
    }
}

Laufzeitfehler::Laufzeitfehler(int nummer) : Laufzeitfehler(nummer, FehlerBeschreibung(nummer)) {}

Laufzeitfehler::Laufzeitfehler(int nummer, const std::string& beschreibung)
    : std::runtime_error(beschreibung), nummer_(nummer), beschreibung_(beschreibung) {}

}  // namespace sw
