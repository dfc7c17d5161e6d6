// Environment variables of this session. On a machine in a directory they come from its registry, never from the host.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tidvane::platform {

class Environment {
public:
    virtual ~Environment() = default;
    // Names compare without regard to case.
    virtual std::optional<std::string> get(const std::string& name) = 0;
    virtual void set(const std::string& name, const std::string& value) = 0;
    virtual void remove(const std::string& name) = 0;
    virtual std::vector<std::pair<std::string, std::string>> all() = 0;
    // Result: code-page bytes needed, the closing NUL included. When that is more than `size`, `output` is cut or
    // empty.
    virtual std::size_t ExpandEnvironmentStringsA(const std::string& text, std::size_t size, std::string& output) = 0;
};

}  // namespace tidvane::platform
