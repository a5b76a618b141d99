// BereichsFortschritt: the progress line of a walk over [von, bis] that goes in parts (the
// primary raster, then windows of the secondary sieve). Each part reports the share it has
// done of itself; the label shows the remaining time of the whole, and the walk stops on
// Abbruch.
#pragma once

#include <QLabel>

#include "frame/Fortschritt.h"
#include "frame/Oberflaeche.h"
#include "frame/basZentral.h"

namespace sw {

struct BereichsFortschritt {
    QLabel* label;
    double start, von, bis, teilVon = 0, teilBis = 0;
};

// The report callback of the counting walks; kontext is a BereichsFortschritt.
inline bool BereichsFortschrittMelden(void* kontext, double anteil) {
    auto* s = static_cast<BereichsFortschritt*>(kontext);
    const double hier = s->teilVon + anteil * (s->teilBis - s->teilVon);
    s->label->setText(QString::fromStdString(ZeitText(s->start, hier, s->von, s->bis)));
    DoEvents();
    return !Abbruch;
}

}  // namespace sw
