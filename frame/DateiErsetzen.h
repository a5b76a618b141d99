// DateiErsetzen: writes a whole file so that a crash, a kill or a full disk at any moment
// leaves either the old file or the new one, never a mixture: the content goes to a temporary
// file in the same folder, reaches the disk, and is renamed over the target; then the folder
// itself is synced, so that the rename survives a power cut.
#pragma once

#include <string>
#include <string_view>

namespace sw {

// True when the new content stands; on any failure the old file is untouched, the temporary
// file is gone and errno says why. A file that existed keeps its permissions.
bool DateiErsetzen(const std::string& pfad, std::string_view inhalt);

}  // namespace sw
