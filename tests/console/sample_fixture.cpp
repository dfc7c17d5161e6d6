#include "console/sample_fixture.h"

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "base/text.h"
#include "frontend/sample/sample_machine.h"

namespace tidvane::console {

namespace fs = std::filesystem;
namespace machine = platform::machine;

namespace {

constexpr const char* kSid = "S-1-5-21-0-0-0-1000";
constexpr std::uintmax_t kLargestRead = 1'048'576;

// Of a large file the length will do: no task shortens one.
std::string contentOf(const fs::path& path) {
    const fs::file_status status = fs::symlink_status(path);
    if (fs::is_symlink(status)) return "link to " + fs::read_symlink(path).string();
    if (fs::is_directory(status)) return "folder";
    const std::uintmax_t length = fs::file_size(path);
    if (length > kLargestRead) return std::to_string(length) + " bytes";
    std::string content(static_cast<std::size_t>(length), '\0');
    std::ifstream(path, std::ios::binary).read(content.data(), static_cast<std::streamsize>(length));
    return content;
}

void addKeys(const platform::RegistryKeyPtr& key, const std::string& path, SampleState& state) {
    for (const platform::RegistryValue& value : key->values())
        state[path + "|" + base::lowerCase(value.name)] = value.data;
    for (const platform::RegistryKeyPtr& child : key->children()) {
        const std::string below = path + "\\" + base::lowerCase(child->name());
        state[below] = "key";
        addKeys(child, below, state);
    }
}

}  // namespace

void SampleFixture::SetUp() {
    ASSERT_TRUE(frontend::createSample(here / "machine", here / "program", error)) << error;
}

void SampleFixture::open(machine::Machine::Access access) {
    platform.reset();
    auto opened = machine::Machine::open(here / "machine", access, error);
    ASSERT_NE(opened, nullptr) << error;
    platform = machine::MachinePlatform::make(std::move(opened), {here / "program", "", {}}, error);
    ASSERT_NE(platform, nullptr) << error;
}

std::string SampleFixture::filled(const std::string& text) {
    return base::replaceAll(base::replaceAll(text, "<user>", frontend::kSampleUser), "<sid>", kSid);
}

bool SampleFixture::there(const std::string& path) const {
    return fs::symlink_status(place(path)).type() != fs::file_type::not_found;
}

std::string SampleFixture::onDisk(const std::string& path) {
    return base::lowerCase(filled(path));
}

std::string SampleFixture::keyOf(const frontend::SampleValue& value) {
    return base::lowerCase((value.hive == frontend::SampleHive::User ? "HKEY_CURRENT_USER\\" : "HKEY_LOCAL_MACHINE\\") +
                           std::string(value.key));
}

std::string SampleFixture::inRegistry(const frontend::SampleValue& value) {
    return keyOf(value) + "|" + base::lowerCase(value.name);
}

SampleState SampleFixture::state() {
    SampleState state;
    const std::string root = here / "machine";
    for (const auto& entry : fs::recursive_directory_iterator(root)) {
        const std::string path = entry.path().string().substr(root.size() + 1);
        // The registry's own files are read as keys and values.
        state[base::lowerCase(path)] = path.ends_with(".reg") ? "registry" : contentOf(entry.path());
    }
    open(machine::Machine::Access::Read);
    platform::RegistryTree& tree = platform->machine().registry().tree();
    addKeys(tree.currentUser(), "hkey_current_user", state);
    addKeys(tree.machine(), "hkey_local_machine", state);
    return state;
}

bool SampleFixture::keepsAttributes() {
    if (platform == nullptr) open();
    unsigned bits = 0;
    (void)platform->files().GetAttributes("C:\\Windows\\Temp\\keep-hidden.txt", bits);
    return (bits & platform::attribute::Hidden) != 0;
}

}  // namespace tidvane::console
