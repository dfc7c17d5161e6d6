#include "platform/preview/preview_services.h"

#include "platform/common/clear_tracks_command.h"

namespace tidvane::platform {

namespace {

// INET_E_RESOURCE_NOT_FOUND, as the call answers without a network.
constexpr long kResourceNotFound = static_cast<int>(0x800C0005u);

class EndedProcess final : public Process {
public:
    bool wait(int /*milliseconds*/) override { return true; }
};

}  // namespace

std::unique_ptr<Process> PreviewProcesses::CreateProcessA(const std::string& commandLine, int /*show*/) {
    std::unique_ptr<Process> cleared = runClearTracksCommand(commandLine, cache_);
    if (cleared != nullptr || starts_ == Starts::Nothing) return cleared;
    return std::make_unique<EndedProcess>();
}

long PreviewNetwork::URLDownloadToFileA(const std::string& /*url*/, const std::string& /*file*/,
                                        const std::function<bool(std::uint64_t, std::uint64_t)>& /*progress*/) {
    return kResourceNotFound;
}

}  // namespace tidvane::platform
