// The drawings in data/icons and their table: what is named is there, is used, and can be drawn by a small reader.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <set>
#include <string>

#include <vector>

namespace tidvane {
namespace {

namespace fs = std::filesystem;

const fs::path kRoot = TIDVANE_SOURCE_DIR;
const fs::path kIcons = kRoot / "data" / "icons";

// What the toolkit's reader of drawings knows, as far as we use it, with the attributes that each may have.
const std::set<std::string> kPaint{"fill",           "fill-opacity",    "stroke",   "stroke-width",
                                   "stroke-linecap", "stroke-linejoin", "transform"};
const std::map<std::string, std::set<std::string>> kElements{
    {"svg", {"xmlns", "width", "height", "viewBox"}},
    {"g", {}},
    {"path", {"d"}},
    {"rect", {"x", "y", "width", "height", "rx"}},
    {"circle", {"cx", "cy", "r"}},
    {"ellipse", {"cx", "cy", "rx", "ry"}},
    {"line", {"x1", "y1", "x2", "y2"}},
    {"polyline", {"points"}},
    {"polygon", {"points"}},
    {"defs", {}},
    {"linearGradient", {"id", "x1", "y1", "x2", "y2"}},
    {"stop", {"offset", "stop-color"}},
};
// Pictures that are not square.
const std::set<std::string> kOblong{"PicStyleDiskSize", "wizard-side"};
// The program paints it: its colour is a setting.
const std::set<std::string> kPainted{"PicRGBThemeMix"};
constexpr std::size_t kMostBytes = 4096;

std::string contentOf(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

struct Element {
    std::string name;
    std::map<std::string, std::string> attributes;
};

struct Drawing {
    std::vector<Element> elements;
    std::string fault;  // empty: well-formed
};

Drawing faulty(Drawing drawing, const std::string& fault) {
    drawing.fault = fault;
    return drawing;
}

// Elements with quoted attributes alone: no declaration, comment, entity or text.
Drawing read(const std::string& text) {
    static const std::regex kAttribute("\\s+([A-Za-z][A-Za-z0-9-]*)=\"([^\"<&]*)\"");
    Drawing drawing;
    std::vector<std::string> open;
    std::size_t at = 0;
    while (at < text.size()) {
        if (std::isspace(static_cast<unsigned char>(text[at])) != 0) {
            ++at;
            continue;
        }
        if (text[at] != '<') return faulty(drawing, "text outside of an element");
        const std::size_t end = text.find('>', at);
        if (end == std::string::npos) return faulty(drawing, "an element without an end");
        std::string tag = text.substr(at + 1, end - at - 1);
        at = end + 1;
        if (!tag.empty() && tag[0] == '/') {
            if (open.empty() || open.back() != tag.substr(1)) return faulty(drawing, "closes what is not open: " + tag);
            open.pop_back();
            continue;
        }
        const bool empty = !tag.empty() && tag.back() == '/';
        if (empty) tag.pop_back();
        const std::size_t nameEnd = std::min(tag.find_first_of(" \n\t"), tag.size());
        Element element{tag.substr(0, nameEnd), {}};
        std::size_t read = nameEnd;
        for (std::sregex_iterator match(tag.begin() + static_cast<std::ptrdiff_t>(nameEnd), tag.end(), kAttribute),
             none;
             match != none; ++match) {
            if (nameEnd + static_cast<std::size_t>(match->position()) != read) break;
            read += static_cast<std::size_t>(match->length());
            if (!element.attributes.emplace((*match)[1], (*match)[2]).second) {
                return faulty(drawing, "twice in one element: " + (*match)[1].str());
            }
        }
        if (tag.find_first_not_of(" \n\t", read) != std::string::npos) return faulty(drawing, "not readable: " + tag);
        if (open.empty() && !drawing.elements.empty()) return faulty(drawing, "more than one drawing");
        drawing.elements.push_back(element);
        if (!empty) open.push_back(element.name);
    }
    if (!open.empty()) return faulty(drawing, "not closed: " + open.back());
    return drawing;
}

// Empty: allowed.
std::string objection(const Element& element) {
    const auto known = kElements.find(element.name);
    if (known == kElements.end()) return "element " + element.name;
    for (const auto& [name, value] : element.attributes) {
        if (!known->second.contains(name) && !kPaint.contains(name)) return "attribute " + name + " of " + element.name;
    }
    return {};
}

std::vector<fs::path> drawings() {
    std::vector<fs::path> files;
    for (const auto& entry : fs::directory_iterator(kIcons)) {
        if (entry.path().extension() == ".svg") files.push_back(entry.path());
    }
    return files;
}

struct Row {
    std::string use;
    std::string file;
    std::string size;
    std::string meaning;
};

std::vector<Row> table() {
    static const std::regex kRow("([^\t#][^\t]*)\t([^\t]+)\t([0-9]+x[0-9]+)\t([^\t]+)");
    std::vector<Row> rows;
    std::ifstream in(kIcons / "icons.tsv");
    for (std::string line; std::getline(in, line);) {
        if (line.empty() || line[0] == '#') continue;
        std::smatch part;
        const bool whole = std::regex_match(line, part, kRow);
        EXPECT_TRUE(whole) << "use, file, size and meaning, one tab between them: " << line;
        if (whole) rows.push_back({part[1], part[2], part[3], part[4]});
    }
    return rows;
}

std::set<std::string> uses() {
    std::set<std::string> names;
    for (const Row& row : table()) names.insert(row.use);
    return names;
}

// The first group of each match in the sources below a folder of src/.
std::set<std::string> namesIn(const std::string& folder, const std::regex& pattern) {
    std::set<std::string> names;
    const fs::path where = kRoot / "src" / folder;
    if (!fs::exists(where)) return names;
    for (const auto& entry : fs::recursive_directory_iterator(where)) {
        if (entry.path().extension() != ".h" && entry.path().extension() != ".cpp") continue;
        const std::string text = contentOf(entry.path());
        for (std::sregex_iterator match(text.begin(), text.end(), pattern), none; match != none; ++match) {
            names.insert((*match)[1]);
        }
    }
    return names;
}

TEST(IconFiles, AreWellFormedAndUseOnlyWhatTheToolkitDraws) {
    ASSERT_GT(drawings().size(), 60U);
    for (const fs::path& file : drawings()) {
        const Drawing drawing = read(contentOf(file));
        EXPECT_EQ(drawing.fault, "") << file;
        ASSERT_FALSE(drawing.elements.empty()) << file;
        EXPECT_EQ(drawing.elements[0].name, "svg") << file;
        EXPECT_GT(drawing.elements.size(), 1U) << file << " draws nothing";
        for (const Element& element : drawing.elements) EXPECT_EQ(objection(element), "") << file;
        EXPECT_LE(fs::file_size(file), kMostBytes) << file;
    }
}

TEST(IconFiles, HaveASquareBoxOfTheirSize) {
    for (const fs::path& file : drawings()) {
        const Drawing drawing = read(contentOf(file));
        ASSERT_FALSE(drawing.elements.empty()) << file;
        auto root = drawing.elements[0].attributes;
        EXPECT_EQ(root["viewBox"], "0 0 " + root["width"] + " " + root["height"]) << file;
        EXPECT_EQ(root["width"] == root["height"], !kOblong.contains(file.stem().string())) << file;
    }
}

TEST(IconFiles, OfTheSetShareOneGridAndOneStroke) {
    for (const fs::path& file : drawings()) {
        const std::string name = file.stem().string();
        if (kOblong.contains(name) || name == "tidvane" || name.rfind("tray", 0) == 0) continue;
        if (name == "ImgUpdateEnglish") continue;  // the flag's own stripes
        const Drawing drawing = read(contentOf(file));
        ASSERT_FALSE(drawing.elements.empty()) << file;
        EXPECT_EQ(drawing.elements[0].attributes.at("viewBox"), "0 0 24 24") << file;
        for (const Element& element : drawing.elements) {
            const auto width = element.attributes.find("stroke-width");
            if (width == element.attributes.end()) continue;
            EXPECT_EQ(width->second, "2") << file;
        }
    }
}

TEST(IconTable, NamesEachUseOnceAndFilesThatExist) {
    std::set<std::string> seen;
    for (const Row& row : table()) {
        EXPECT_TRUE(seen.insert(row.use).second) << row.use << " stands there twice";
        EXPECT_EQ(row.file == "-", kPainted.contains(row.use)) << row.use;
        if (row.file == "-") continue;
        EXPECT_TRUE(fs::exists(kIcons / (row.file + ".svg"))) << row.use << ": " << row.file;
        const std::size_t by = row.size.find('x');
        EXPECT_EQ(row.size.substr(0, by) == row.size.substr(by + 1), !kOblong.contains(row.file)) << row.use;
    }
}

TEST(IconTable, NamesEveryFile) {
    std::set<std::string> named;
    for (const Row& row : table()) named.insert(row.file);
    for (const fs::path& file : drawings()) EXPECT_TRUE(named.contains(file.stem().string())) << file;
}

// A use and a file of one name that is another's would make the name mean two pictures.
TEST(IconTable, AUseWithTheNameOfAFileShowsThatFile) {
    for (const Row& row : table()) {
        if (!fs::exists(kIcons / (row.use + ".svg"))) continue;
        EXPECT_EQ(row.use, row.file);
    }
}

TEST(IconTable, HasARowForEveryIconOfTheTaskPanes) {
    const auto main = namesIn("app", std::regex("PaneRow\\{[^\"}]*\"([A-Za-z]+)\""));
    EXPECT_GE(main.size(), 13U);
    // Its items have tags in place of icons.
    const auto options = namesIn("settings", std::regex("\"(s[A-Z][A-Za-z]*)\""));
    EXPECT_GE(options.size(), 9U);
    const auto known = uses();
    for (const std::string& name : main) EXPECT_TRUE(known.contains(name)) << name;
    for (const std::string& name : options) EXPECT_TRUE(known.contains(name)) << name;
}

TEST(IconTable, HasARowForEveryImageControl) {
    std::set<std::string> controls;
    for (const auto& entry : fs::directory_iterator(kRoot / "src")) {
        if (!entry.is_directory()) continue;
        controls.merge(
            namesIn(entry.path().filename().string(), std::regex("forms::Image \\w+\\{\\*this, \"(\\w+)\"")));
    }
    EXPECT_GE(controls.size(), 20U);
    const auto known = uses();
    for (const std::string& name : controls) EXPECT_TRUE(known.contains(name)) << name;
}

TEST(IconTable, HasARowForEverySmallIconOfTheTaskList) {
    const auto known = uses();
    for (int number = 1; number <= 10; ++number)
        EXPECT_TRUE(known.contains("task-" + std::to_string(number))) << number;
}

TEST(IconTable, KnowsEveryNameThatTheWindowsAskFor) {
    auto asked = namesIn("view", std::regex("\\bicon\\(\"([^\"]+)\""));
    asked.merge(
        namesIn("view", std::regex("\\b(?:image|imageButton|button)\\([\\w.>-]+,\\s*[\\w.>-]+,\\s*\"([^\"]+)\"")));
    EXPECT_FALSE(asked.empty());
    const auto known = uses();
    for (const std::string& name : asked) {
        EXPECT_TRUE(known.contains(name) || fs::exists(kIcons / (name + ".svg"))) << name;
    }
}

// The reader itself: what it would say of drawings that nobody has made.
TEST(IconFiles, TheCheckSeesWhatIsForbidden) {
    for (const char* text : {
             "<svg><path d=\"M0 0\"></svg>",
             "<svg></g></svg>",
             "<svg",
             "<svg/><svg/>",
             "<svg>A</svg>",
             "<!-- note --><svg/>",
             "<svg a=\"1\" a=\"2\"/>",
             "<svg a=1/>",
             "<svg><rect x=\"1\"y=\"2\"/></svg>",
         }) {
        EXPECT_NE(read(text).fault, "") << text;
    }
    const Drawing good =
        read("<svg viewBox=\"0 0 24 24\">\n  <g fill=\"none\">\n    <path d=\"M0 0\"/>\n  </g>\n</svg>\n");
    EXPECT_EQ(good.fault, "");
    ASSERT_EQ(good.elements.size(), 3U);
    EXPECT_EQ(good.elements[0].attributes.at("viewBox"), "0 0 24 24");
    for (const char* name : {"text", "use", "style", "filter", "mask", "clipPath", "image"}) {
        EXPECT_NE(objection({name, {}}), "") << name;
    }
    EXPECT_NE(objection({"path", {{"style", "fill:red"}}}), "");
    EXPECT_NE(objection({"path", {{"class", "a"}}}), "");
    EXPECT_EQ(objection({"path", {{"d", "M0 0"}, {"fill", "none"}}}), "");
}

}  // namespace
}  // namespace tidvane
