// The contract on an embedded machine in a directory of its own.
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

#include "contract/contract_platform.h"
#include "platform/machine/machine_platform.h"
#include "support/host_directory.h"

namespace tidvane::contract {
namespace {

namespace machine = platform::machine;

class MachineContractMachine : public ContractMachine {
public:
    explicit MachineContractMachine(bool preview = false) {
        host_.folder("program");
        std::string error;
        if (!machine::Machine::create(host_ / "machine", error)) throw std::runtime_error(error);
        auto opened = machine::Machine::open(host_ / "machine", machine::Machine::Access::Write, error);
        if (!opened) throw std::runtime_error(error);
        machine::MachineOptions options;
        options.programFolder = host_ / "program";
        options.preview = preview;
        options.warn = [this](const platform::Warning& warning) { warnings_.push_back(warning); };
        machine_ = machine::MachinePlatform::make(std::move(opened), options, error);
        if (!machine_) throw std::runtime_error(error);
    }

    platform::Platform platform() override { return machine_->platform(); }
    std::vector<platform::Warning> warnings() override { return warnings_; }

    void putFolder(const std::string& path) override { host_.folder(below(path)); }
    void putFile(const std::string& path, std::string_view bytes) override {
        host_.file(below(path), std::string(bytes));
    }
    void putLink(const std::string& path, const std::string& target) override {
        host_.link(host_ / below(target), below(path));
    }
    void putHardLink(const std::string& path, const std::string& existing) override {
        ASSERT_EQ(::link((host_ / below(existing)).c_str(), (host_ / below(path)).c_str()), 0);
    }
    void putFifo(const std::string& path) override { ASSERT_EQ(::mkfifo((host_ / below(path)).c_str(), 0666), 0); }
    void putRawName(const std::string& folder, const std::string& name, std::string_view bytes) override {
        host_.file(below(folder) + "/" + name, std::string(bytes));
    }

    bool has(const std::string& path) override { return host_.has(below(path)); }
    bool hasRawName(const std::string& folder, const std::string& name) override {
        return host_.has(below(folder) + "/" + name);
    }
    std::string bytesOf(const std::string& path) override { return has(path) ? host_.content(below(path)) : "<none>"; }

    bool lock(const std::string& /*path*/) override { return false; }
    bool forbid(const std::string& folder) override {
        return ::geteuid() != 0 && ::chmod((host_ / below(folder)).c_str(), 0) == 0;
    }

private:
    // Where a path of drive C: lies below the test's directory, each name in the spelling that is there already.
    [[nodiscard]] std::string below(const std::string& path) const {
        std::string place = "machine/drive_c";
        for (const std::string& name : base::split(path.substr(3), "\\")) {
            std::string spelled = name;
            if (!host_.has(place + "/" + name)) {
                std::error_code none;
                for (const auto& entry : std::filesystem::directory_iterator(host_ / place, none)) {
                    if (base::equalNoCase(entry.path().filename().string(), name)) spelled = entry.path().filename();
                }
            }
            place += "/" + spelled;
        }
        return place;
    }

    tests::HostDirectory host_;
    std::vector<platform::Warning> warnings_;
    std::unique_ptr<machine::MachinePlatform> machine_;
};

const ContractFactory kMachine{"machine", [] { return std::make_unique<MachineContractMachine>(); }};

TIDVANE_RUN_CONTRACT(Machine, kMachine);

const ContractFactory kPreview{"machine preview",
                               [] { return std::make_unique<PreviewContractMachine<MachineContractMachine>>(true); }};

TIDVANE_RUN_CONTRACT(MachinePreview, kPreview);

}  // namespace
}  // namespace tidvane::contract
