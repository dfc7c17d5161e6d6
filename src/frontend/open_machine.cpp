#include "frontend/open_machine.h"

#include "frontend/places.h"

namespace tidvane::frontend {

namespace machine = platform::machine;

namespace {

std::string inUserData(const char* name) {
    const std::string home = userDataDirectory();
    return home.empty() ? home : home + "/" + name;
}

std::unique_ptr<machine::MachinePlatform> openAs(const OpenMachine& wish, machine::Machine::Access access,
                                                 bool takeAtFirstChange, std::string& error) {
    auto opened = machine::Machine::open(wish.directory, access, error);
    if (opened == nullptr) return nullptr;
    if (!fillProgramFolder(wish.programFolder, deliveredData(), error)) return nullptr;
    return machine::MachinePlatform::make(
        std::move(opened), {wish.programFolder, wish.arguments, {}, wish.preview, takeAtFirstChange}, error);
}

}  // namespace

std::string defaultMachine() {
    return inUserData("machine");
}

std::string defaultProgramFolder() {
    return inUserData("program");
}

std::unique_ptr<machine::MachinePlatform> openMachine(const OpenMachine& wish, std::string& error) {
    return openAs(wish, wish.access, false, error);
}

HeldMachine::HeldMachine(std::unique_ptr<machine::MachinePlatform> platform) : platform_(std::move(platform)) {}

std::unique_ptr<HeldMachine> HeldMachine::open(const OpenMachine& wish, std::string& error) {
    auto platform = openAs(wish, machine::Machine::Access::Read, true, error);
    if (platform == nullptr) return nullptr;
    return std::unique_ptr<HeldMachine>(new HeldMachine(std::move(platform)));
}

HeldMachine::~HeldMachine() {
    std::string ignored;
    (void)settle(ignored);
}

std::string HeldMachine::whyNotNow() {
    return platform_->machine().whyNotTaken();
}

bool HeldMachine::dirty() const {
    return platform_->machine().taken() && platform_->machine().registry().changed();
}

bool HeldMachine::mayRemove(std::string& why) {
    // What an earlier act left comes first: what it works with has to be what lies on the disk.
    if (std::string ignored; dirty() && !settle(ignored) && dirty()) {
        why = notStored_;
        return false;
    }
    return platform_->take(why);
}

bool HeldMachine::settle(std::string& error) {
    machine::Machine& opened = platform_->machine();
    if (!opened.taken()) return true;
    std::string problem;
    if (platform::ok(opened.commit(problem))) {
        opened.release();
        notStored_.clear();
        return true;
    }
    // Behind another program's changes ours can never be stored: they are given up, and what lies there holds.
    if (opened.whyNotTaken().empty() && !opened.registryIsCurrent() && platform_->readAnew()) {
        error = "Another program changed the registry of \"" + opened.directory() +
                "\" meanwhile, so that the last changes of keys and values were not stored; clean again.";
        opened.release();
        notStored_.clear();
        return false;
    }
    if (notStored_.empty()) error = problem;
    notStored_ = problem;
    return false;
}

}  // namespace tidvane::frontend
