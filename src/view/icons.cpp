#include "view/icons.h"

#include <wx/bitmap.h>
#include <wx/icon.h>
#include <wx/image.h>

#include <algorithm>
#include <array>
#include <map>
#include <string_view>
#include <utility>

#include "view/embedded.h"

namespace tidvane::view {

namespace {

constexpr int kUsualSide = 24;
constexpr std::string_view kPainted = "-";

struct Picture {
    std::string_view file;
    wxSize size;
};

const IconUse* useOf(const std::string& name) {
    const auto uses = iconUses();
    const auto found = std::find_if(uses.begin(), uses.end(), [&](const IconUse& row) { return row.use == name; });
    return found == uses.end() ? nullptr : &*found;
}

Picture pictureOf(const std::string& name) {
    if (const IconUse* use = useOf(name)) return {use->file, wxSize(use->width, use->height)};
    return {name, wxSize(kUsualSide, kUsualSide)};
}

// The drawing in the given size: its own one is replaced, the box of its coordinates stays.
std::string drawing(std::string_view text, wxSize size) {
    const std::size_t box = text.find("viewBox=");
    if (box == std::string_view::npos) return std::string(text);
    std::string sized = "<svg width=\"" + std::to_string(size.x) + "\" height=\"" + std::to_string(size.y) + "\" ";
    return sized += text.substr(box);
}

wxImage rasterised(const wxBitmapBundle& drawing, wxSize size) {
    return drawing.GetBitmap(size).ConvertToImage();
}

// wxGTK 3.2.2 leaves the colours of translucent pixels multiplied by their opacity, where the rest of the toolkit takes
// them as they are: tints turn grey and edges dark. Whether this one does so shows on a half of white.
bool multipliesColours() {
    constexpr int kSide = 4;
    static const bool multiplies = [] {
        const char* half =
            "<svg width=\"4\" height=\"4\"><rect width=\"4\" height=\"4\" fill=\"#fff\" fill-opacity=\"0.5\"/></svg>";
        const wxSize size(kSide, kSide);
        return rasterised(wxBitmapBundle::FromSVG(half, size), size).GetRed(1, 1) < 200;
    }();
    return multiplies;
}

void divideColours(wxImage& image) {
    if (!image.HasAlpha()) return;
    const std::size_t pixels = static_cast<std::size_t>(image.GetWidth()) * static_cast<std::size_t>(image.GetHeight());
    unsigned char* colour = image.GetData();
    const unsigned char* alpha = image.GetAlpha();
    for (std::size_t pixel = 0; pixel < pixels; ++pixel, ++alpha) {
        for (int part = 0; part < 3; ++part, ++colour) {
            if (*alpha != 0) *colour = static_cast<unsigned char>(std::min(255, *colour * 255 / *alpha));
        }
    }
}

// A drawing with its own colours.
class TrueColours final : public wxBitmapBundleImpl {
public:
    explicit TrueColours(const wxBitmapBundle& drawing) : drawing_(drawing) {}

    wxSize GetDefaultSize() const override { return drawing_.GetDefaultSize(); }
    wxSize GetPreferredBitmapSizeAtScale(double scale) const override {
        return drawing_.GetPreferredBitmapSizeAtScale(scale);
    }
    wxBitmap GetBitmap(const wxSize& size) override {
        // The same size is asked for at each painting.
        if (!last_.IsOk() || lastSize_ != size) {
            wxImage image = rasterised(drawing_, size);
            divideColours(image);
            last_ = wxBitmap(image);
            lastSize_ = size;
        }
        return last_;
    }

private:
    wxBitmapBundle drawing_;
    wxBitmap last_;
    wxSize lastSize_;
};

std::vector<std::string>& askedInVain() {
    static std::vector<std::string> names;
    return names;
}

wxBitmapBundle drawn(std::string_view file, wxSize size) {
    const auto icons = embeddedIcons();
    const auto found =
        std::find_if(icons.begin(), icons.end(), [&](const EmbeddedFile& row) { return row.name == file; });
    if (found == icons.end()) {
        if (file != kPainted) askedInVain().emplace_back(file);
        return {};
    }
    const wxBitmapBundle bundle = wxBitmapBundle::FromSVG(drawing(found->content, size).c_str(), size);
    if (!bundle.IsOk() || !multipliesColours()) return bundle;
    // The bundle counts who uses it and deletes it with the last.
    return wxBitmapBundle::FromImpl(new TrueColours(bundle));  // NOLINT(clang-analyzer-cplusplus.NewDeleteLeaks)
}

}  // namespace

wxBitmapBundle icon(const std::string& name, wxSize logicalSize) {
    const Picture picture = pictureOf(name);
    const wxSize size = logicalSize.IsFullySpecified() ? logicalSize : picture.size;
    // Oblong pictures follow the size of their windows; kept, they would pile up.
    if (size.x != size.y) return drawn(picture.file, size);

    using Key = std::pair<std::string, int>;
    // Never destroyed: the toolkit is gone before static objects are.
    static auto& kept = *new std::map<Key, wxBitmapBundle>;
    const auto [place, isNew] = kept.try_emplace(Key(picture.file, size.x));
    if (isNew) place->second = drawn(picture.file, size);
    return place->second;
}

wxIconBundle programIcons() {
    constexpr std::array kSides{16, 24, 32, 48, 64, 128, 256};
    wxIconBundle icons;
    for (const int side : kSides) {
        wxIcon one;
        // Below that the mark's lines run together.
        one.CopyFromBitmap(icon(side < 32 ? "tray" : "tidvane", wxSize(side, side)).GetBitmap(wxSize(side, side)));
        icons.AddIcon(one);
    }
    return icons;
}

const std::vector<std::string>& unknownIcons() {
    return askedInVain();
}

}  // namespace tidvane::view
