#include "view/sounds.h"

#include <wx/filename.h>
#include <wx/log.h>
#include <wx/sound.h>

#include <algorithm>
#include <map>

#include "view/embedded.h"
#include "view/text.h"

namespace tidvane::view {

void playEmbeddedSound(const std::string& name) {
    const auto sounds = embeddedSounds();
    const auto found =
        std::find_if(sounds.begin(), sounds.end(), [&](const EmbeddedFile& row) { return row.name == name; });
    if (found == sounds.end()) return;
    const wxLogNull noWordOfMissingDevices;
    // Kept, for a sound plays on after the call. Never destroyed: the toolkit is gone before static objects are.
    static auto& kept = *new std::map<std::string, wxSound>;
    const auto [place, isNew] = kept.try_emplace(name);
    if (isNew) place->second.Create(found->content.size(), found->content.data());
    if (place->second.IsOk()) place->second.Play(wxSOUND_ASYNC);
}

void playSoundFile(const std::string& path) {
    // It is read whole, and the window waits meanwhile.
    constexpr unsigned long kLongest = 16UL << 20U;  // bytes
    const wxLogNull noWordOfBadFiles;
    const wxULongLong size = wxFileName::GetSize(toNative(path));
    if (!wxFileExists(toNative(path)) || size == wxInvalidSize || size > kLongest) return;
    wxSound sound(toNative(path));
    if (sound.IsOk()) sound.Play(wxSOUND_ASYNC);
}

}  // namespace tidvane::view
