// A sample machine with its program folder, and what lies in it at a moment.
#pragma once

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>

#include "frontend/sample/sample_traces.h"
#include "platform/machine/machine_platform.h"
#include "support/host_directory.h"

namespace tidvane::console {

namespace taken_by = frontend::taken_by;

// Everything on the disk and in the registry, with its content. Names are in lower case, as a spared file may come back
// in capitals.
using SampleState = std::map<std::string, std::string>;

class SampleFixture : public ::testing::Test {
protected:
    void SetUp() override;

    // Opens the machine, or opens it anew.
    void open(platform::machine::Machine::Access access = platform::machine::Machine::Access::Write);

    // A path or text of the tables with what stands for its signs.
    static std::string filled(const std::string& text);
    [[nodiscard]] std::string place(const std::string& path) const { return here / ("machine/" + filled(path)); }
    [[nodiscard]] bool there(const std::string& path) const;
    // As a state names them.
    static std::string onDisk(const std::string& path);
    [[nodiscard]] static std::string inRegistry(const frontend::SampleValue& value);
    static std::string keyOf(const frontend::SampleValue& value);

    // Opens the machine.
    SampleState state();
    // Hidden files can be told from others only where the host keeps the bits of Windows.
    bool keepsAttributes();

    tests::HostDirectory here;
    std::string error;
    std::unique_ptr<platform::machine::MachinePlatform> platform;
};

}  // namespace tidvane::console
