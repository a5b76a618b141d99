// PngBild: a PNG file from plain pixels, for the pictures sw-cli writes without the desktop
// toolkit. The image data go into stored (uncompressed) deflate blocks: every reader takes
// them, and the pictures are mostly few colours, small enough as they are.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace sw {

// The bytes of a PNG of breite x hoehe pixels, 0xRRGGBB per pixel, row by row from the top.
std::string PngKodieren(int32_t breite, int32_t hoehe, const std::vector<uint32_t>& pixel);

}  // namespace sw
