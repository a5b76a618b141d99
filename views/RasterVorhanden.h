// RasterVorhanden: the check every window that reads the primary raster makes before it
// shows anything. Before the first run the raster is one word of zeros, and every number
// coprime to 30 would read as prime; the windows refuse instead, with one clear message.
#pragma once

namespace sw {

// True if a finished primary raster stands; else information 1002 and false.
bool PrimaerRasterVorhanden();

}  // namespace sw
