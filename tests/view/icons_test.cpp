// The pictures as the toolkit draws them, and the sounds as they are embedded.
#include "view/icons.h"

#include <gtest/gtest.h>
#include <wx/bitmap.h>
#include <wx/image.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <string>

#include "view/embedded.h"

namespace tidvane::view {
namespace {

constexpr std::array kSides{16, 24, 32, 48};

struct Colour {
    double red, green, blue;  // 0 to 1
};
constexpr Colour kLight{1.0, 1.0, 1.0};
constexpr Colour kDark{0.169, 0.169, 0.169};

wxImage imageOf(const std::string& name, wxSize size) {
    const wxBitmapBundle bundle = icon(name, size);
    return bundle.IsOk() ? bundle.GetBitmap(size).ConvertToImage() : wxImage();
}

double opacity(const wxImage& image, int x, int y) {
    return image.HasAlpha() ? image.GetAlpha(x, y) / 255.0 : 1.0;
}

Colour over(const wxImage& image, int x, int y, const Colour& ground) {
    const double alpha = opacity(image, x, y);
    const auto mix = [alpha](int above, double below) { return alpha * above / 255.0 + (1 - alpha) * below; };
    return {mix(image.GetRed(x, y), ground.red), mix(image.GetGreen(x, y), ground.green),
            mix(image.GetBlue(x, y), ground.blue)};
}

double luminance(const Colour& colour) {
    const auto linear = [](double part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.red) + 0.7152 * linear(colour.green) + 0.0722 * linear(colour.blue);
}

double contrast(const Colour& one, const Colour& other) {
    const auto [low, high] = std::minmax({luminance(one), luminance(other)});
    return (high + 0.05) / (low + 0.05);
}

// The part of the picture's pixels for which `is` holds, 0 to 1.
template <typename Predicate>
double part(const wxImage& image, Predicate is) {
    int count = 0;
    for (int y = 0; y < image.GetHeight(); ++y) {
        for (int x = 0; x < image.GetWidth(); ++x) count += is(x, y) ? 1 : 0;
    }
    return static_cast<double>(count) / (image.GetWidth() * image.GetHeight());
}

bool isIcon(const EmbeddedFile& file) {
    return file.name != "PicStyleDiskSize" && file.name != "wizard-side";
}

TEST(Icons, EveryPictureIsDrawnInEverySize) {
    ASSERT_GT(embeddedIcons().size(), 60U);
    for (const EmbeddedFile& file : embeddedIcons()) {
        for (const int side : kSides) {
            const wxImage image = imageOf(std::string(file.name), wxSize(side, side));
            ASSERT_TRUE(image.IsOk()) << file.name;
            EXPECT_EQ(image.GetSize(), wxSize(side, side)) << file.name;
            const double drawn = part(image, [&](int x, int y) { return opacity(image, x, y) > 0.25; });
            EXPECT_GT(drawn, 0.08) << file.name << " at " << side;
            EXPECT_TRUE(drawn < 0.98 || !isIcon(file)) << file.name << " at " << side;
        }
    }
}

TEST(Icons, EveryPictureStandsOutFromLightAndDarkGround) {
    for (const EmbeddedFile& file : embeddedIcons()) {
        const wxImage image = imageOf(std::string(file.name), wxSize(32, 32));
        ASSERT_TRUE(image.IsOk()) << file.name;
        for (const Colour& ground : {kLight, kDark}) {
            // A twentieth of the square in a colour that differs as graphics should: that is one stroke across it.
            const auto seen = [&](int x, int y) { return contrast(over(image, x, y, ground), ground) >= 2.9; };
            EXPECT_GT(part(image, seen), 0.05) << file.name << (ground.red > 0.5 ? " on light" : " on dark");
        }
    }
}

struct Pixel {
    int red, green, blue, alpha;
};

Pixel pixel(const wxImage& image, int x, int y) {
    return {image.GetRed(x, y), image.GetGreen(x, y), image.GetBlue(x, y),
            image.HasAlpha() ? image.GetAlpha(x, y) : 255};
}

void expectColour(const Pixel& is, const Pixel& shouldBe) {
    constexpr int kRounding = 10;  // a tint has few steps
    EXPECT_NEAR(is.red, shouldBe.red, kRounding);
    EXPECT_NEAR(is.green, shouldBe.green, kRounding);
    EXPECT_NEAR(is.blue, shouldBe.blue, kRounding);
    EXPECT_NEAR(is.alpha, shouldBe.alpha, kRounding);
}

TEST(Icons, TintsHaveTheColourOfTheirDrawingAndNotAGreyOne) {
    const wxImage done = imageOf("task-9", wxSize(96, 96));
    ASSERT_TRUE(done.IsOk());
    expectColour(pixel(done, 48, 12), {0x2f, 0x9e, 0x49, 255});   // its ring
    expectColour(pixel(done, 30, 30), {0x2f, 0x9e, 0x49, 0x38});  // its face, 22% of it
    EXPECT_EQ(pixel(done, 0, 0).alpha, 0);
}

TEST(Icons, GradientsRunOverTheWholePicture) {
    const wxImage banner = imageOf("PicStyleDiskSize", wxSize(480, 64));
    ASSERT_TRUE(banner.IsOk());
    expectColour(pixel(banner, 1, 4), {0x2a, 0x62, 0xb8, 255});
    expectColour(pixel(banner, 240, 4), {0x25, 0x89, 0xbe, 255});
    expectColour(pixel(banner, 478, 4), {0x1f, 0xb0, 0xc4, 255});
    const wxImage mark = imageOf("tidvane", wxSize(64, 64));
    expectColour(pixel(mark, 50, 4), {0x1f, 0xae, 0xc4, 255});
    expectColour(pixel(mark, 50, 36), {0x25, 0x86, 0xbe, 255});
}

TEST(Icons, PicturesKeepAMarginSoThatNothingIsCut) {
    for (const EmbeddedFile& file : embeddedIcons()) {
        if (!isIcon(file)) continue;
        const wxImage image = imageOf(std::string(file.name), wxSize(96, 96));
        for (int i = 0; i < 96; ++i) {
            EXPECT_LT(opacity(image, i, 0), 0.1) << file.name << " at the top";
            EXPECT_LT(opacity(image, i, 95), 0.1) << file.name << " at the bottom";
            EXPECT_LT(opacity(image, 0, i), 0.1) << file.name << " at the left";
            EXPECT_LT(opacity(image, 95, i), 0.1) << file.name << " at the right";
        }
    }
}

TEST(Icons, EveryUseHasItsPictureInItsSize) {
    ASSERT_GT(iconUses().size(), 60U);
    for (const IconUse& row : iconUses()) {
        const wxBitmapBundle bundle = icon(std::string(row.use));
        EXPECT_EQ(bundle.IsOk(), row.file != "-") << row.use;
        if (!bundle.IsOk()) continue;
        EXPECT_EQ(bundle.GetDefaultSize(), wxSize(row.width, row.height)) << row.use;
    }
}

TEST(Icons, AUseShowsTheFileOfTheTable) {
    const wxImage use = imageOf("ImgMozillaSuccess", wxSize(24, 24));
    const wxImage file = imageOf("found", wxSize(24, 24));
    const wxImage other = imageOf("missing", wxSize(24, 24));
    const std::size_t bytes = std::size_t{3} * 24 * 24;
    EXPECT_TRUE(std::equal(use.GetData(), use.GetData() + bytes, file.GetData()));
    EXPECT_FALSE(std::equal(use.GetData(), use.GetData() + bytes, other.GetData()));
}

TEST(Icons, AnUnknownNameGivesNothingAndIsRemembered) {
    EXPECT_FALSE(icon("no such picture", wxSize(16, 16)).IsOk());
    EXPECT_FALSE(icon("no such banner", wxSize(480, 64)).IsOk());
    const auto& unknown = unknownIcons();
    EXPECT_EQ(std::count(unknown.begin(), unknown.end(), "no such picture"), 1);
    EXPECT_EQ(std::count(unknown.begin(), unknown.end(), "no such banner"), 1);
    EXPECT_FALSE(icon("PicRGBThemeMix").IsOk());
    EXPECT_EQ(std::count(unknown.begin(), unknown.end(), "-"), 0);
}

TEST(Icons, ThePictureOfAHighResolutionIsDrawnAndNotEnlarged) {
    const wxBitmapBundle bundle = icon("task-9", wxSize(16, 16));
    const wxBitmap twice = bundle.GetBitmap(wxSize(32, 32));
    ASSERT_EQ(twice.GetSize(), wxSize(32, 32));
    const wxImage sharp = twice.ConvertToImage();
    const wxImage enlarged = imageOf("task-9", wxSize(16, 16)).Scale(32, 32);
    const std::size_t bytes = std::size_t{32} * 32;
    EXPECT_FALSE(std::equal(sharp.GetAlpha(), sharp.GetAlpha() + bytes, enlarged.GetAlpha()));
}

TEST(Icons, TheBannerIsStretchedToTheWidthOfItsWindow) {
    const wxImage banner = imageOf("PicStyleDiskSize", wxSize(900, 64));
    ASSERT_TRUE(banner.IsOk());
    ASSERT_EQ(banner.GetSize(), wxSize(900, 64));
    EXPECT_GT(part(banner, [&](int x, int y) { return opacity(banner, x, y) > 0.95; }), 0.99);
}

TEST(Icons, TheProgramHasItsMarkInSmallAndLarge) {
    const wxIconBundle icons = programIcons();
    for (const int side : {16, 32, 64, 256}) {
        EXPECT_EQ(icons.GetIcon(wxSize(side, side), wxIconBundle::FALLBACK_NONE).GetSize(), wxSize(side, side));
    }
}

TEST(EmbeddedSounds, AreWholeShortWaveFiles) {
    for (const char* name : {"group", "item"}) {
        const auto sounds = embeddedSounds();
        const auto found =
            std::find_if(sounds.begin(), sounds.end(), [&](const EmbeddedFile& row) { return row.name == name; });
        ASSERT_NE(found, sounds.end()) << name;
        const std::string_view wave = found->content;
        ASSERT_GT(wave.size(), 44U);
        EXPECT_LT(wave.size(), 4096U);
        EXPECT_EQ(wave.substr(0, 4), "RIFF");
        EXPECT_EQ(wave.substr(8, 4), "WAVE");
        const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(wave[at]); };
        EXPECT_EQ(byte(4) + 256U * byte(5) + 8, wave.size());
    }
}

}  // namespace
}  // namespace tidvane::view
