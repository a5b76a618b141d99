#include "frame/Oberflaeche.h"

#include "frame/OberflaecheTerminal.h"

namespace sw {

namespace {
Oberflaeche* aktuelle = nullptr;
int tiefe = 0;

Oberflaeche& standard() {
    static OberflaecheTerminal terminal;
    return terminal;
}
}  // namespace

Oberflaeche& UI() { return aktuelle ? *aktuelle : standard(); }

void OberflaecheSetzen(Oberflaeche* ui) { aktuelle = ui; }

void DoEvents() {
    struct Tiefe {
        Tiefe() { ++tiefe; }
        ~Tiefe() { --tiefe; }
    } t;
    UI().DoEvents();
}

int EreignisTiefe() { return tiefe; }

}  // namespace sw
