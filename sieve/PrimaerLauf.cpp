#include "sieve/PrimaerLauf.h"

#include <cmath>
#include <limits>
#include <new>

#include "frame/Meldungen.h"
#include "frame/Oberflaeche.h"
#include "frame/basZentral.h"
#include "sieve/RasterTabellen.h"
#include "sieve/SiebSchritte.h"
#include "sieve/SiebSegmentiert.h"
#include "sieve/basBitPrim.h"
#include "sieve/basMaxPrimaer.h"
#include "sieve/basQuadrato.h"
#include "sieve/basSiebwerk.h"

namespace sw {

const char* MethodenName(int32_t methode) {
    switch (methode) {
        case MethodeProdukt: return "SiebProdukt";
        case MethodeQuadratSchritt: return "SiebQuadratSchritt";
        case MethodeWortSchritt: return "SiebWortSchritt";
        case MethodeBereichBeschaffen: return "BereichBeschaffen";
        case MethodeQuadratDifferenz: return "SiebQuadratDifferenz";
        case MethodeRestklassen: return "SiebRestklassen";
        case MethodeSechserSchritt: return "SiebSechserSchritt";
        case MethodeSegmentiert: return "SiebSegmentiert";
        default: return "";
    }
}

Decimal GroessteGrenze() {
    return Decimal(int64_t(std::numeric_limits<int32_t>::max() - 1)) * Decimal(RasterSpanne);
}

bool GrenzeSetzen(const Decimal& grenze) {
    if (grenze < Decimal(1000)) {
        MsgInfo(469);
        return false;
    }
    if (grenze > GroessteGrenze()) {
        MsgLimit(Laufzeitfehler(FehlerUeberlauf));
        return false;
    }
    PrimaerGrenze = grenze;
    RasterLetzterIndex = aDivDec2Long(&grenze, RasterSpanne);
    PrimaerWurzel = int32_t(std::sqrt(grenze.Double()));
    PrimaerWurzelWort = PrimaerWurzel / RasterSpanne;
    return true;
}

bool MethodeZulaessig(int32_t methode) {
    if (methode < 0 || methode >= MethodenAnzahl) {
        MsgNichtImplementiert();
        return false;
    }
    if (PrimaerGrenze > Decimal(GrenzeLong) && methode != MethodeProdukt &&
        methode != MethodeBereichBeschaffen && methode != MethodeSegmentiert) {
        MsgInfo(520);
        return false;
    }
    return true;
}

void MethodeAusfuehren(int32_t methode) {
    switch (methode) {
        case MethodeProdukt: SiebProdukt(); break;
        case MethodeQuadratSchritt: SiebQuadratSchritt(); break;
        case MethodeWortSchritt: SiebWortSchritt(); break;
        case MethodeBereichBeschaffen: BereichBeschaffen(); break;
        case MethodeQuadratDifferenz: SiebQuadratDifferenz(); break;
        case MethodeRestklassen: SiebRestklassen(); break;
        case MethodeSechserSchritt: SiebSechserSchritt(); break;
        case MethodeSegmentiert: SiebSegmentiert(); break;
        default: break;
    }
}

void LaufAbschliessen() {
    RasterEcht = true;
    PrimaerQuadrat = PrimaerGrenze * PrimaerGrenze;
    // The methods leave the numbers above the limit in the last word each in its own way;
    // struck out, they make every method's raster (and its block file) the same.
    UeberGrenzeStreichen();
    PrimaerRaster[0] = RasterWort0;
    RasterBereit = true;
}

void LaufVerworfen() {
    RasterBereit = false;
    RasterAufEinWort();
    PrimaerGrenze = PrimaerQuadrat = Decimal();
    PrimaerWurzel = PrimaerWurzelWort = 0;
}

bool PrimaerLauf(const Decimal& grenze, int32_t methode) {
    if (!GrenzeSetzen(grenze) || !MethodeZulaessig(methode)) return false;
    // The segmented build strikes 7 and 11 itself (most words by copying a pattern over them)
    // and the bit of 1: a pre-sieve pass would be one more trip over the whole raster, in one
    // thread, whose words are then overwritten.
    const bool angelegt = methode == MethodeSegmentiert ? RasterAnlegen() : RasterVorsieben();
    if (!angelegt) {
        // The old raster is gone and the new one could not be had.
        LaufVerworfen();
        return false;
    }
    DoEvents();
    StartZeit = Timer();
    try {
        MethodeAusfuehren(methode);
    } catch (const std::bad_alloc&) {
        LaufVerworfen();
        MsgSpeicher(Laufzeitfehler(FehlerKeinSpeicher));
        return false;
    } catch (...) {
        // A stopped run leaves a half-built raster that nobody may read.
        LaufVerworfen();
        throw;
    }
    LaufAbschliessen();
    return true;
}

}  // namespace sw
