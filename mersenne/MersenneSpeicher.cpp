// MersenneSpeicher: choosing a store and copying between two (see MersenneSpeicher.h).
#include "mersenne/MersenneSpeicher.h"

#include "db/PgVerbindung.h"
#include "frame/basZentral.h"
#include "mersenne/PgSpeicher.h"
#include "mersenne/SqliteSpeicher.h"

namespace sw {

void MersenneSpeicher::AblegenBlock(const ZeilenBlock& zeilen) {
    for (const auto& [p, z] : zeilen) Ablegen(p, z);
}

std::unique_ptr<MersenneSpeicher> SpeicherFuer(const std::string& ort) {
    if (IstPgUrl(ort)) return std::make_unique<PgSpeicher>(ort);
    return std::make_unique<SqliteSpeicher>(ort.empty() || ort.back() == '/' ? ort : ort + "/");
}

// The default block is large enough that commits cost nothing against the rows, small enough
// that a stopped copy loses little and a server holds no huge transaction.
int64_t DbKopieren(MersenneSpeicher& von, MersenneSpeicher& nach, size_t blockZeilen) {
    ZeilenBlock block;
    block.reserve(blockZeilen);
    int32_t segment = DbKeinSegment;
    int64_t kopiert = 0;
    const auto wegschreiben = [&] {
        if (block.empty()) return;
        nach.Beginnen();
        try {
            nach.AblegenBlock(block);
            nach.Festschreiben();
        } catch (...) {
            nach.Verwerfen();
            throw;
        }
        kopiert += int64_t(block.size());
        block.clear();
    };
    von.Durchlaufen(0, GrenzeLong, DbStatusWahl::Alle, true, [&](int32_t p, const PrimZeile& z) {
        // A block never spans two segments: the files take only rows of their own.
        if (DbSegment(p) != segment) {
            wegschreiben();
            segment = DbSegment(p);
            nach.Oeffnen(segment);
        }
        block.emplace_back(p, z);
        if (block.size() >= blockZeilen) wegschreiben();
    });
    wegschreiben();
    nach.Schliessen();
    return kopiert;
}

}  // namespace sw
