// The documents name files of the house: what they name is there, and none of them lies about unnamed.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace tidvane {
namespace {

namespace fs = std::filesystem;

const fs::path kRoot = TIDVANE_SOURCE_DIR;

std::string contentOf(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

std::vector<fs::path> documents() {
    std::vector<fs::path> found{kRoot / "README.md", kRoot / "CONTRIBUTING.md", kRoot / "CHANGELOG.md"};
    for (const auto& entry : fs::directory_iterator(kRoot / "docs")) {
        if (entry.path().extension() == ".md") found.push_back(entry.path());
    }
    return found;
}

// Names between signs of code that are paths or files of the source tree.
std::set<std::string> namedFiles(const std::string& text) {
    static const std::regex kName("`([A-Za-z0-9_./-]+\\.(md|cpp|h|tsv|sh|txt))`");
    std::set<std::string> names;
    for (std::sregex_iterator match(text.begin(), text.end(), kName), end; match != end; ++match) {
        names.insert((*match)[1]);
    }
    return names;
}

// From the root, or from where includes and tests are written from.
bool isThere(const std::string& name) {
    for (const char* folder : {"", "src", "tests", "tests/fuzz"}) {
        if (fs::exists(kRoot / folder / name)) return true;
    }
    return false;
}

// It is shown on the start page, which breaks its lines by itself, with the line ends of Windows.
TEST(Documents, TheDeliveredLicenseIsThatOfTheSources) {
    const auto words = [](const std::string& text) {
        std::istringstream in(text);
        return std::vector<std::string>{std::istream_iterator<std::string>(in), {}};
    };
    const std::string delivered = contentOf(kRoot / "data" / "License.txt");
    ASSERT_NE(delivered.find("\r\n"), std::string::npos);
    EXPECT_EQ(words(delivered), words(contentOf(kRoot / "LICENSE")));
}

TEST(Documents, NameFilesThatExist) {
    // Files that a run makes, or that others write.
    const std::set<std::string> kOfOthers{"td_log.txt"};
    std::size_t count = 0;
    for (const fs::path& document : documents()) {
        for (const std::string& name : namedFiles(contentOf(document))) {
            EXPECT_TRUE(isThere(name) || kOfOthers.count(name) != 0) << document.filename() << " names " << name;
            ++count;
        }
    }
    EXPECT_GT(count, 10U);
}

TEST(Documents, AreAllNamedInTheFirstOneThatIsRead) {
    const std::set<std::string> named = namedFiles(contentOf(kRoot / "README.md"));
    for (const auto& entry : fs::directory_iterator(kRoot / "docs")) {
        if (entry.path().extension() != ".md") continue;  // the folder of the pictures
        EXPECT_EQ(named.count("docs/" + entry.path().filename().string()), 1U) << entry.path();
    }
}

}  // namespace
}  // namespace tidvane
