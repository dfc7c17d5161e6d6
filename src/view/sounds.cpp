#include "view/sounds.h"

#include <wx/log.h>
#include <wx/sound.h>

#include <algorithm>
#include <map>

#include "view/embedded.h"

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

}  // namespace tidvane::view
