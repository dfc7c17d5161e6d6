// What the program carries inside itself. Defined in a source that the build makes of data/icons and data/sounds.
#pragma once

#include <span>
#include <string_view>

namespace tidvane::view {

struct EmbeddedFile {
    std::string_view name;  // of the file, without folder and extension
    std::string_view content;
};

// A row of data/icons/icons.tsv.
struct IconUse {
    std::string_view use;
    std::string_view file;  // "-" for what the program paints
    int width;              // at 100%
    int height;
};

std::span<const EmbeddedFile> embeddedIcons();   // SVG texts
std::span<const EmbeddedFile> embeddedSounds();  // WAV files
std::span<const IconUse> iconUses();

}  // namespace tidvane::view
