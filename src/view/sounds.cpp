#include "view/sounds.h"

#include <wx/filename.h>
#include <wx/log.h>
#include <wx/sound.h>

#ifdef __WXGTK__
#include <glib.h>
#include <sys/mman.h>
#include <unistd.h>
#endif

#include <algorithm>
#include <array>
#include <map>

#include "view/embedded.h"
#include "view/text.h"

namespace tidvane::view {

namespace {

#ifdef __WXGTK__
// The toolkit of most distributions knows a single kind of device, which today's systems do not have. Their sound
// servers bring programs that play a file.
constexpr std::array kPlayers{"pw-play", "paplay", "aplay"};

// Runs on its own and says nothing. False: there is none.
bool startPlayer(const std::string& path) {
    constexpr auto kQuiet = static_cast<GSpawnFlags>(G_SPAWN_STDOUT_TO_DEV_NULL | G_SPAWN_STDERR_TO_DEV_NULL);
    return std::any_of(kPlayers.begin(), kPlayers.end(), [&](const char* player) {
        char* program = g_find_program_in_path(player);
        if (program == nullptr) return false;
        std::string file = path;
        std::array<char*, 3> command{program, file.data(), nullptr};
        const bool started =
            g_spawn_async(nullptr, command.data(), nullptr, kQuiet, nullptr, nullptr, nullptr, nullptr) != FALSE;
        g_free(program);
        return started;
    });
}

// A file that players can open and that leaves nothing behind: it lies in memory and goes with the program. Empty: the
// system makes none.
std::string fileInMemory(const EmbeddedFile& sound) {
    const int file = ::memfd_create("tidvane-sound", MFD_CLOEXEC);
    if (file < 0) return {};
    if (::write(file, sound.content.data(), sound.content.size()) != static_cast<ssize_t>(sound.content.size())) {
        ::close(file);
        return {};
    }
    return "/proc/" + std::to_string(::getpid()) + "/fd/" + std::to_string(file);
}

bool startPlayer(const EmbeddedFile& sound) {
    static std::map<std::string, std::string> files;
    const auto [place, isNew] = files.try_emplace(std::string(sound.name));
    if (isNew) place->second = fileInMemory(sound);
    return !place->second.empty() && startPlayer(place->second);
}
#else
bool startPlayer(const std::string&) {
    return false;
}
bool startPlayer(const EmbeddedFile&) {
    return false;
}
#endif

}  // namespace

void playEmbeddedSound(const std::string& name) {
    const auto sounds = embeddedSounds();
    const auto found =
        std::find_if(sounds.begin(), sounds.end(), [&](const EmbeddedFile& row) { return row.name == name; });
    if (found == sounds.end() || startPlayer(*found)) return;
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
    if (sound.IsOk() && !startPlayer(path)) sound.Play(wxSOUND_ASYNC);
}

}  // namespace tidvane::view
