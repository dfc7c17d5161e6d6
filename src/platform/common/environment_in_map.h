// The variables of one session, held in memory.
#pragma once

#include <map>
#include <string>

#include "base/code_page.h"
#include "base/text.h"
#include "platform/environment.h"

namespace tidvane::platform {

class EnvironmentInMap final : public Environment {
public:
    explicit EnvironmentInMap(const base::CodePage& page = base::CodePage(1252)) : page_(page) {}

    std::optional<std::string> get(const std::string& name) override;
    // A name keeps the spelling of its first setting. An empty name, and one with "=" behind its first character, can
    // name no variable: nothing happens.
    void set(const std::string& name, const std::string& value) override;
    void remove(const std::string& name) override;
    // In the order of the names.
    std::vector<std::pair<std::string, std::string>> all() override;
    std::size_t ExpandEnvironmentStringsA(const std::string& text, std::size_t size, std::string& output) override;

private:
    base::CodePage page_;
    std::map<std::string, std::string, base::NoCaseLess> variables_;
};

}  // namespace tidvane::platform
