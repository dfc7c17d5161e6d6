#include "platform/preview/preview_services.h"

#include "platform/common/clear_tracks_command.h"
#include "platform/common/ended_process.h"

namespace tidvane::platform {

std::unique_ptr<Process> PreviewProcesses::CreateProcessA(const std::string& commandLine, int /*show*/) {
    std::unique_ptr<Process> cleared = runClearTracksCommand(commandLine, cache_);
    if (cleared != nullptr || starts_ == Starts::Nothing) return cleared;
    return std::make_unique<EndedProcess>();
}

long PreviewNetwork::URLDownloadToFileA(const std::string& /*url*/, const std::string& /*file*/,
                                        const std::function<bool(std::uint64_t, std::uint64_t)>& /*progress*/) {
    return download::ResourceNotFound;
}

}  // namespace tidvane::platform
