#include "views/RasterVorhanden.h"

#include "frame/Meldungen.h"
#include "frame/basZentral.h"

namespace sw {

bool PrimaerRasterVorhanden() {
    // A raster cut short by a failure has fewer words than its index says; it counts as none.
    if (RasterBereit && PrimaerRaster.size() > size_t(RasterLetzterIndex)) return true;
    MsgInfo(1002);
    return false;
}

}  // namespace sw
