// The contract on the machine in memory.
#include <optional>

#include "contract/contract_platform.h"
#include "platform/memory/memory_preview.h"

namespace tidvane::contract {
namespace {

class MemoryContractMachine : public ContractMachine {
public:
    platform::Platform platform() override { return machine_.platform(); }
    std::vector<platform::Warning> warnings() override { return machine_.warnings; }

    void putFolder(const std::string& path) override { machine_.files.putFolder(path); }
    void putFile(const std::string& path, std::string_view bytes) override { machine_.files.putFile(path, bytes); }
    void putLink(const std::string& path, const std::string& target) override { machine_.files.putLink(path, target); }
    void putHardLink(const std::string& path, const std::string& existing) override {
        machine_.files.putHardLink(path, existing);
    }
    void putFifo(const std::string& path) override { machine_.files.putOther(path); }
    void putRawName(const std::string& folder, const std::string& name, std::string_view bytes) override {
        machine_.files.putRawName(folder, name, bytes);
    }

    bool has(const std::string& path) override { return machine_.files.has(path); }
    bool hasRawName(const std::string& folder, const std::string& name) override {
        return machine_.files.hasRawName(folder, name);
    }
    std::string bytesOf(const std::string& path) override { return machine_.files.bytesOf(path).value_or("<none>"); }

    bool lock(const std::string& path) override {
        machine_.files.lock(path);
        return true;
    }
    bool forbid(const std::string& folder) override {
        machine_.files.deny(folder);
        return true;
    }

protected:
    platform::MemoryPlatform machine_;
};

const ContractFactory kMemory{"memory", [] { return std::make_unique<MemoryContractMachine>(); }};

TIDVANE_RUN_CONTRACT(Memory, kMemory);

// Behind the services of a preview.
class PreviewedMemory : public MemoryContractMachine {
public:
    platform::Platform platform() override { return preview().platform(); }
    std::vector<platform::Warning> warnings() override { return preview().warnings; }

private:
    // Made at the first use: the registry and the environment are looked at then.
    platform::MemoryPreview& preview() {
        if (!preview_) preview_.emplace(machine_);
        return *preview_;
    }
    std::optional<platform::MemoryPreview> preview_;
};

const ContractFactory kPreview{"memory preview",
                               [] { return std::make_unique<PreviewContractMachine<PreviewedMemory>>(); }};

TIDVANE_RUN_CONTRACT(MemoryPreview, kPreview);

}  // namespace
}  // namespace tidvane::contract
