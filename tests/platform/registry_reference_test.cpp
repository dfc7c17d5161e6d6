// The recorded answers of the real registry calls. A script runs on a fresh empty key.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "base/code_page.h"
#include "platform/common/registry_in_tree.h"
#include "support/reference.h"

namespace tidvane::platform {
namespace {

using Tokens = std::vector<std::string>;

// Statements are separated by "; ", tokens by blanks; '...' is taken as it stands, also behind a prefix ("h1:'...'").
std::vector<Tokens> statements(const std::string& script) {
    std::vector<Tokens> all(1);
    std::string token;
    bool any = false;
    bool quoted = false;
    const auto end = [&] {
        if (any) all.back().push_back(token);
        token.clear();
        any = false;
    };
    for (std::size_t i = 0; i < script.size(); ++i) {
        const char c = script[i];
        if (c == '\'') {
            quoted = !quoted;
            any = true;
        } else if (!quoted && c == ';' && i + 1 < script.size() && script[i + 1] == ' ') {
            end();
            all.emplace_back();
            ++i;
        } else if (!quoted && c == ' ') {
            end();
        } else {
            token += c;
            any = true;
        }
    }
    end();
    return all;
}

std::string fromHex(const std::string& digits) {
    std::string bytes;
    for (std::size_t i = 0; i + 1 < digits.size(); i += 2) {
        bytes += static_cast<char>(std::stoi(digits.substr(i, 2), nullptr, 16));
    }
    return bytes;
}

std::string toHex(const std::string& bytes) {
    if (bytes.empty()) return "-";
    std::string digits;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        digits += "0123456789abcdef"[byte >> 4];
        digits += "0123456789abcdef"[byte & 15];
    }
    return digits;
}

std::uint32_t rightsOf(const std::string& word) {
    static const std::map<std::string, std::uint32_t> words{
        {"all", 0xF003F}, {"read", 0x20019}, {"write", 0x20006}, {"query", 1}, {"enum", 8}};
    const auto at = words.find(word);
    return at != words.end() ? at->second : static_cast<std::uint32_t>(std::stoul(word, nullptr, 16));
}

std::uint32_t typeOf(const std::string& word) {
    static const std::map<std::string, std::uint32_t> words{{"none", 0},  {"sz", 1},      {"expand", 2}, {"bin", 3},
                                                            {"dword", 4}, {"dwordbe", 5}, {"multi", 7},  {"qword", 11}};
    const auto at = words.find(word);
    return at != words.end() ? at->second : static_cast<std::uint32_t>(std::stoul(word));
}

std::string dataOf(const std::string& type, const std::string& text) {
    if (type == "sz" || type == "expand") return text + '\0';
    if (type == "multi") {
        std::string bytes;
        std::stringstream items(text);
        for (std::string item; std::getline(items, item, '|');) bytes += item + '\0';
        return bytes + '\0';
    }
    if (type == "dword") {
        const auto number = static_cast<std::uint32_t>(std::stoul(text, nullptr, 0));
        std::string bytes;
        for (int shift = 0; shift < 32; shift += 8) bytes += static_cast<char>((number >> shift) & 0xFF);
        return bytes;
    }
    return fromHex(text);
}

class Interpreter {
public:
    Interpreter() : registry_(tree_, removed_) {
        bool created = false;
        registry_.RegCreateKeyExA(HKEY_CURRENT_USER_, "Software\\Fresh", 0xF003F, fresh_, created);
    }

    std::string run(const std::string& script) {
        std::string results;
        for (const Tokens& statement : statements(script)) {
            if (!results.empty()) results += "; ";
            results += one(statement);
        }
        return codePage_.fromUtf8(results);
    }

private:
    struct Target {
        HKey base;
        std::string path;  // UTF-8
    };

    Target target(const std::string& text) {
        const std::size_t colon = text.find(':');
        const std::string prefix = text.substr(0, colon);
        if (colon != std::string::npos) {
            const std::string path = codePage_.toUtf8(text.substr(colon + 1));
            if (prefix == "0") return {0, path};
            if (prefix == "bad") return {0xBAD0BAD0, path};
            if (prefix.size() == 2 && prefix[0] == 'h' && std::isdigit(prefix[1])) return {named_[prefix], path};
        }
        return {fresh_, codePage_.toUtf8(text)};
    }

    // The handle a verb works on; an empty path is the base itself.
    RegResult openForVerb(const std::string& text, HKey& key) {
        const Target where = target(text);
        key = where.base;
        if (where.path.empty()) return 0;
        return registry_.RegOpenKeyExA(where.base, where.path, 0xF003F, key);
    }

    std::string one(const Tokens& t) {
        const std::string& verb = t.at(0);
        if (verb == "create") {
            const Target where = target(t.at(1));
            HKey key = 0;
            bool created = false;
            const RegResult result = registry_.RegCreateKeyExA(where.base, where.path, 0xF003F, key, created);
            return std::to_string(result) + (result != 0 ? "" : created ? " new" : " old");
        }
        if (verb == "createh") {
            const Target where = target(t.at(2));
            bool created = false;
            return std::to_string(registry_.RegCreateKeyExA(where.base, where.path, 0xF003F, named_[t.at(1)], created));
        }
        if (verb == "open" || verb == "openh") {
            const bool keep = verb == "openh";
            const Target where = target(t.at(keep ? 2 : 1));
            HKey key = 0;
            const RegResult result = registry_.RegOpenKeyExA(where.base, where.path, rightsOf(t.at(keep ? 3 : 2)), key);
            if (keep) named_[t.at(1)] = key;
            return std::to_string(result);
        }
        if (verb == "close") return std::to_string(registry_.RegCloseKey(named_[t.at(1)]));
        if (verb == "delkey" || verb == "shdel") {
            const Target where = target(t.at(1));
            return std::to_string(verb == "delkey" ? registry_.RegDeleteKeyA(where.base, where.path)
                                                   : registry_.SHDeleteKeyA(where.base, where.path));
        }
        HKey key = 0;
        if (const RegResult result = openForVerb(t.at(1), key); result != 0) return "open " + std::to_string(result);
        if (verb == "set" || verb == "setraw") {
            const std::string data = verb == "set" ? dataOf(t.at(3), t.at(4)) : fromHex(t.at(4));
            return std::to_string(registry_.RegSetValueExA(key, valueName(t.at(2)), typeOf(t.at(3)), data));
        }
        if (verb == "del") return std::to_string(registry_.RegDeleteValueA(key, valueName(t.at(2))));
        if (verb == "get") return get(key, valueName(t.at(2)), std::stol(t.at(3)));
        if (verb == "enumk")
            return enumKeys(key, t.size() > 2 ? static_cast<std::uint32_t>(std::stoul(t.at(2))) : 1024);
        if (verb == "enumv") return enumValues(key);
        if (verb == "enumvbuf") return enumFirstValue(key, t.at(2));
        if (verb == "info") return info(key);
        return "unknown verb " + verb;
    }

    std::string valueName(const std::string& token) { return token == "NULL" ? "" : codePage_.toUtf8(token); }

    std::string get(HKey key, const std::string& name, long room) {
        std::uint32_t type = 0;
        std::uint32_t size = room < 0 ? 0 : static_cast<std::uint32_t>(room);
        std::string data;
        const RegResult result = registry_.RegQueryValueExA(key, name, type, room < 0 ? nullptr : &data, size);
        std::string text = std::to_string(result);
        if (result == 0 || result == 234) text += " type=" + std::to_string(type) + " cb=" + std::to_string(size);
        if (result == 0 && room >= 0) text += " data=" + toHex(data);
        return text;
    }

    std::string enumKeys(HKey key, std::uint32_t room) {
        std::string list;
        for (std::uint32_t i = 0;; ++i) {
            std::string name;
            const RegResult result = registry_.RegEnumKeyA(key, i, room, name);
            if (result != 0) return std::to_string(result) + " [" + list + "]";
            list += (i > 0 ? "|" : "") + name;
        }
    }

    std::string enumValues(HKey key) {
        std::string list;
        for (std::uint32_t i = 0;; ++i) {
            std::string name;
            const RegResult result = registry_.RegEnumValueA(key, i, 20000, name);
            if (result != 0) return std::to_string(result) + " [" + list + "]";
            std::uint32_t type = 0;
            std::uint32_t size = 0;
            (void)registry_.RegQueryValueExA(key, name, type, nullptr, size);
            list += (i > 0 ? "|" : "") + name + ":" + std::to_string(type) + ":" + std::to_string(size);
        }
    }

    std::string enumFirstValue(HKey key, const std::string& room) {
        std::string name;
        const RegResult result = registry_.RegEnumValueA(key, 0, static_cast<std::uint32_t>(std::stoul(room)), name);
        if (result != 0) return std::to_string(result) + " n=" + room;
        return "0 n=" + std::to_string(name.size()) + " [" + name + "]";
    }

    std::string info(HKey key) {
        RegistryApi::KeyInfo found;
        const RegResult result = registry_.RegQueryInfoKeyA(key, found);
        std::ostringstream text;
        text << result << " subkeys=" << found.subKeys << " maxkey=" << found.longestSubKey
             << " values=" << found.values << " maxname=" << found.longestValueName
             << " maxdata=" << found.longestValue;
        return text.str();
    }

    base::CodePage codePage_{1252};
    RegistryTree tree_;
    RemovalCounter removed_;
    RegistryInTree registry_;
    HKey fresh_ = 0;
    std::map<std::string, HKey> named_;
};

// Our interface has no null paths and none of these calls.
bool canRun(const std::string& script) {
    for (const Tokens& t : statements(script)) {
        for (const char* verb : {"setdef", "defval", "shdelempty", "shdelval"}) {
            if (t.at(0) == verb) return false;
        }
        const std::size_t keyAt = t.at(0).size() > 1 && t.at(0).back() == 'h' ? 2 : 1;
        if (keyAt < t.size() && t[keyAt].ends_with("NULL")) return false;
    }
    return true;
}

// Results with the lists of values sorted: the recorded order is not the one of Windows.
std::string withSortedLists(const std::string& results) {
    std::string sorted;
    for (std::size_t at = 0; at < results.size();) {
        const std::size_t open = results.find('[', at);
        const std::size_t close = results.find(']', at);
        if (open == std::string::npos || close == std::string::npos || close < open) return sorted + results.substr(at);
        std::vector<std::string> items;
        std::stringstream list(results.substr(open + 1, close - open - 1));
        for (std::string item; std::getline(list, item, '|');) items.push_back(item);
        std::sort(items.begin(), items.end());
        sorted += results.substr(at, open + 1 - at);
        for (const std::string& item : items) sorted += item + "|";
        sorted += ']';
        at = close + 1;
    }
    return sorted;
}

TEST(RegistryReference, EveryRowHoldsOrIsDecided) {
    const auto rows = tests::readReference("registry.tsv");
    const auto decisions = tests::readDecisions("registry_decisions.tsv");
    tests::ReferenceCheck check(decisions);
    for (const auto& row : rows) {
        if (!canRun(row["script"])) continue;
        std::string recorded = row["results"];
        std::string actual = Interpreter().run(row["script"]);
        if (row.note().starts_with("windows: values are enumerated in order of creation")) {
            recorded = withSortedLists(recorded);
            actual = withSortedLists(actual);
        }
        check.compare(row, recorded, actual);
    }
    EXPECT_EQ(check.report(), "");
    EXPECT_EQ(decisions.unknownIds(rows), "");
    if (!tests::otherReferenceInUse()) {
        EXPECT_EQ(check.compared(), rows.size());
    }
}

}  // namespace
}  // namespace tidvane::platform
