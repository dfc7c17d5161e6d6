// One machine of each platform, as the contract tests furnish it. The tests are the same for all of them, and compare
// the codes that come back.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "base/text.h"
#include "platform/platform.h"

namespace tidvane::contract {

// Furnishing and inspecting go past the services under test. Paths are Windows paths on drive C:, which every machine
// has, with a Windows folder C:\Windows, program folders and the profile of a user.
class ContractMachine {
public:
    virtual ~ContractMachine() = default;

    // The services as a program gets them: behind the guards.
    virtual platform::Platform platform() = 0;
    // What the guards told so far.
    virtual std::vector<platform::Warning> warnings() = 0;

    // Missing folders on the way are made.
    virtual void putFolder(const std::string& path) = 0;
    virtual void putFile(const std::string& path, std::string_view bytes) = 0;
    virtual void putLink(const std::string& path, const std::string& target) = 0;
    virtual void putHardLink(const std::string& path, const std::string& existing) = 0;
    virtual void putFifo(const std::string& path) = 0;
    // A file with this very name, which need not be UTF-8 nor possible in a path.
    virtual void putRawName(const std::string& folder, const std::string& name, std::string_view bytes) = 0;

    // Whether an entry of any kind stands there (a link without its target too).
    virtual bool has(const std::string& path) = 0;
    virtual bool hasRawName(const std::string& folder, const std::string& name) = 0;
    virtual std::string bytesOf(const std::string& path) = 0;

    // False where what is written over a file's content goes nowhere.
    virtual bool overwritesContent() { return true; }

    // Opens the file elsewhere without sharing. False where the system has no such thing, as on Linux.
    virtual bool lock(const std::string& path) = 0;
    // Takes every right to look into a folder away. False where that cannot be, as for the superuser of Linux.
    virtual bool forbid(const std::string& folder) = 0;
};

struct ContractFactory {
    std::string name;
    std::function<std::unique_ptr<ContractMachine>()> make;
};

inline void PrintTo(const ContractFactory& factory, std::ostream* out) {
    *out << factory.name;
}

// A machine that is furnished like `Real` and of which the services are those of a preview: what happened on it is what
// they show, and the machine behind them is as it was furnished.
template <class Real>
class PreviewContractMachine : public Real {
public:
    using Real::Real;

    void putFile(const std::string& path, std::string_view bytes) override {
        // Where the preview has removed a file, another can only come by its own services.
        if (Real::has(path) && !has(path)) {
            EXPECT_EQ(this->platform().files.WriteFileBytes(path, bytes), platform::Status::Ok);
            written_.insert(path);
        } else {
            Real::putFile(path, bytes);
        }
    }
    bool has(const std::string& path) override {
        platform::EntryDetails details;
        return platform::ok(this->platform().files.LookAt(path, details));
    }
    bool hasRawName(const std::string& folder, const std::string& name) override {
        std::vector<platform::FolderEntry> entries;
        (void)this->platform().files.ReadFolder(folder, entries);
        for (const platform::FolderEntry& entry : entries) {
            if (entry.name == name) return true;
        }
        // What no path can hold is not listed, and goes with its folder alone.
        return name.find_first_of("\\:*?") != std::string::npos && has(folder) && Real::hasRawName(folder, name);
    }
    std::string bytesOf(const std::string& path) override {
        std::string bytes;
        const platform::Status status = this->platform().files.ReadFileBytes(path, bytes);
        if (status == platform::Status::InUse) return Real::bytesOf(path);
        return platform::ok(status) ? bytes : "<none>";
    }
    bool overwritesContent() override { return false; }
    bool lock(const std::string& path) override {
        // A file that is in the preview alone cannot be open elsewhere.
        return !written_.contains(path) && Real::lock(path);
    }

private:
    std::set<std::string> written_;
};

// The fixture of every contract: a machine with the empty folder C:\Scratch.
class Contract : public testing::TestWithParam<ContractFactory> {
protected:
    Contract() : machine(GetParam().make()), services(machine->platform()), files(services.files) {
        machine->putFolder("C:\\Scratch");
    }

    std::unique_ptr<ContractMachine> machine;
    platform::Platform services;
    platform::FileSystem& files;

    [[nodiscard]] std::vector<std::string> listing(const std::string& folder) const;
    [[nodiscard]] unsigned attributesOf(const std::string& path) const;
    [[nodiscard]] bool warnedOf(platform::WarningKind kind) const;
};

class FileSystemContract : public Contract {};
class ShellContract : public Contract {};
class GuardContract : public Contract {};
class ServicesContract : public Contract {};

// Every platform that runs the suite says so once, in a file of its own.
#define TIDVANE_RUN_CONTRACT(platformName, factory)                                       \
    INSTANTIATE_TEST_SUITE_P(platformName, FileSystemContract, testing::Values(factory)); \
    INSTANTIATE_TEST_SUITE_P(platformName, ShellContract, testing::Values(factory));      \
    INSTANTIATE_TEST_SUITE_P(platformName, GuardContract, testing::Values(factory));      \
    INSTANTIATE_TEST_SUITE_P(platformName, ServicesContract, testing::Values(factory))

}  // namespace tidvane::contract
