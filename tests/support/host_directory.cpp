#include "support/host_directory.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace tidvane::tests {

namespace fs = std::filesystem;

HostDirectory::HostDirectory() : HostDirectory(fs::temp_directory_path().string()) {}

HostDirectory::HostDirectory(const std::string& parent) {
    std::string pattern = (fs::path(parent) / "tidvane-test-XXXXXX").string();
    if (::mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary directory");
    ::chmod(pattern.c_str(), 0755);  // tests that give up their rights still have to get in
    path_ = pattern;
}

HostDirectory::~HostDirectory() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
}

void HostDirectory::folder(const std::string& below) const {
    fs::create_directories(path_ + "/" + below);
}

void HostDirectory::file(const std::string& below, const std::string& content) const {
    const fs::path place = path_ + "/" + below;
    fs::create_directories(place.parent_path());
    std::ofstream(place, std::ios::binary) << content;
}

void HostDirectory::link(const std::string& target, const std::string& below) const {
    const fs::path place = path_ + "/" + below;
    fs::create_directories(place.parent_path());
    fs::create_symlink(target, place);
}

bool HostDirectory::has(const std::string& below) const {
    struct stat info {};
    return ::lstat((path_ + "/" + below).c_str(), &info) == 0;
}

std::string HostDirectory::content(const std::string& below) const {
    std::ifstream in(path_ + "/" + below, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

}  // namespace tidvane::tests
