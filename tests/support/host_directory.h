// A fresh directory of the host for one test, gone at its end.
#pragma once

#include <string>

namespace tidvane::tests {

class HostDirectory {
public:
    HostDirectory();
    // In `parent`, where the usual place for temporary files will not do.
    explicit HostDirectory(const std::string& parent);
    ~HostDirectory();
    HostDirectory(const HostDirectory&) = delete;
    HostDirectory& operator=(const HostDirectory&) = delete;

    [[nodiscard]] const std::string& path() const { return path_; }
    [[nodiscard]] std::string operator/(const std::string& below) const { return path_ + "/" + below; }

    // All below the directory; folders on the way are made.
    void folder(const std::string& below) const;
    void file(const std::string& below, const std::string& content = "x") const;
    void link(const std::string& target, const std::string& below) const;
    [[nodiscard]] bool has(const std::string& below) const;  // links are not followed
    [[nodiscard]] std::string content(const std::string& below) const;

private:
    std::string path_;
};

}  // namespace tidvane::tests
