#include "platform/machine/machine_platform.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "platform/machine/file_time_now.h"
#include "platform/machine/machine_environment.h"

namespace tidvane::platform::machine {

namespace {

std::string programPlace() {
    return std::string("C:\\") + kProgramPlace;
}

// Whether a folder of the host is the machine's directory or a drive's, or lies above one. As the program's folder it
// would be open to the program past every guard, and closed to every look-up on the machine.
bool holdsMachine(const std::string& folder, const Machine& machine) {
    std::error_code problem;
    const std::filesystem::path place = std::filesystem::canonical(folder, problem);
    if (problem) return false;  // mounting it tells
    const auto holds = [&place](const std::string& other) {
        const std::filesystem::path inner(other);
        return std::mismatch(place.begin(), place.end(), inner.begin(), inner.end()).first == place.end();
    };
    return holds(machine.directory()) ||
           std::any_of(machine.drives().begin(), machine.drives().end(),
                       [&holds](const MachineDrive& drive) { return holds(drive.hostFolder); });
}

// The environment has to be complete before the services that read it are made.
EnvironmentInMap madeEnvironment(const MachineRegistry& registry, int codePage) {
    EnvironmentInMap environment{base::CodePage(codePage)};
    fillEnvironment(registry, environment);
    return environment;
}

}  // namespace

MachinePlatform::MachinePlatform(std::unique_ptr<Machine> machine, const MachineOptions& options)
    : machine_(std::move(machine)),
      warn_(options.warn),
      codePage_(ansiCodePage(machine_->registry())),
      environment_(madeEnvironment(machine_->registry(), codePage_)),
      previewFiles_(options.preview ? std::make_unique<PreviewFileSystem>(files_, removed_, fileTimeNow) : nullptr),
      servedFiles_(options.preview ? static_cast<FileSystem&>(*previewFiles_) : files_),
      registry_(machine_->registry().tree(), removed_, codePage_),
      system_(machine_->registry(), environment_, programPlace(), options.arguments),
      shell_(machine_->registry(), environment_, servedFiles_, removed_,
             previewFiles_ ? RecycleBin::Tell([this](const std::string& unit, const std::string& from) {
                 previewFiles_->tellTree(unit, from);
             })
                           : nullptr),
      places_(system_, shell_),
      guard_(places_, servedFiles_, removed_, warn_),
      guardedFiles_(servedFiles_, guard_),
      guardedShell_(shell_, guard_),
      guardedRegistry_(registry_, removed_, warn_),
      profiles_(guardedFiles_, base::CodePage(codePage_)),
      scriptHost_(guardedRegistry_, codePage_),
      browserCache_(guardedFiles_, guardedShell_, guardedRegistry_, base::CodePage(codePage_)),
      processes_(options.programFolder, browserCache_),
      previewProcesses_(options.preview
                            ? std::make_unique<PreviewProcesses>(browserCache_, PreviewProcesses::Starts::Nothing)
                            : nullptr) {
    if (options.takeAtFirstChange && !options.preview) registry_.askBeforeChange([this] { return leaveForChange(); });
}

std::unique_ptr<MachinePlatform> MachinePlatform::make(std::unique_ptr<Machine> machine, const MachineOptions& options,
                                                       std::string& error) {
    std::unique_ptr<MachinePlatform> made(new MachinePlatform(std::move(machine), options));
    for (const MachineDrive& drive : made->machine_->drives()) {
        if (!made->files_.addDrive(drive.letter, drive.type, made->machine_->openDrive(drive))) {
            error = "Drive " + std::string{drive.letter, ':'} +
                    " of the machine cannot be opened; check the rights of \"" + drive.hostFolder + "\".";
            return nullptr;
        }
    }
    if (holdsMachine(options.programFolder, *made->machine_)) {
        error = "The program's folder \"" + options.programFolder +
                "\" holds the machine or one of its drives; name a folder of its own for the program.";
        return nullptr;
    }
    if (!made->files_.mountProgram(programPlace(), options.programFolder)) {
        error =
            "The program's folder \"" + options.programFolder + "\" cannot be opened; create it, or name another one.";
        return nullptr;
    }
    return made;
}

Platform MachinePlatform::platform() {
    Processes& processes = previewProcesses_ ? static_cast<Processes&>(*previewProcesses_) : processes_;
    return {guardedFiles_, profiles_, guardedRegistry_, guardedShell_, processes, session_, environment_, browserCache_,
            system_,       network_,  restorePoints_,   scriptHost_,   clock_,    events_,  removed_};
}

void MachinePlatform::setWarningSink(const WarningSink& warn) {
    warn_ = warn;
    guard_.setSink(warn);
    guardedRegistry_.setSink(warn);
}

bool MachinePlatform::take(std::string& error) {
    if (!machine_->take([this](RegistryTree&& fresh) { registry_.replaceTree(std::move(fresh)); }, error)) return false;
    toldRefusal_.clear();
    return true;
}

bool MachinePlatform::readAnew() {
    std::string ignored;
    return machine_->readAnew([this](RegistryTree&& fresh) { registry_.replaceTree(std::move(fresh)); }, ignored);
}

void MachinePlatform::release() {
    machine_->release();
}

// A Wine server is looked for when the machine is taken and when the registry is written, not at every value between.
ChangeLeave MachinePlatform::leaveForChange() {
    if (machine_->taken()) return ChangeLeave::Granted;
    std::string error;
    if (take(error)) return ChangeLeave::ReadAnew;
    if (warn_ && error != toldRefusal_) warn_({WarningKind::Other, machine_->directory(), error});
    toldRefusal_ = error;
    return ChangeLeave::Denied;
}

Status MachinePlatform::commit(std::string& error) {
    if (previewFiles_) return Status::Ok;
    const Status status = machine_->commit(error);
    if (!ok(status) && warn_) warn_({WarningKind::RegistryLost, machine_->directory(), error});
    return status;
}

}  // namespace tidvane::platform::machine
