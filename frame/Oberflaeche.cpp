#include "frame/Oberflaeche.h"

#include "frame/OberflaecheTerminal.h"

namespace sw {

namespace {
Oberflaeche* aktuelle = nullptr;

Oberflaeche& standard() {
    static OberflaecheTerminal terminal;
    return terminal;
}
}  // namespace

Oberflaeche& UI() { return aktuelle ? *aktuelle : standard(); }

void OberflaecheSetzen(Oberflaeche* ui) { aktuelle = ui; }

}  // namespace sw
