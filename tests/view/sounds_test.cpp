// Sounds on a machine that may have nothing to play them with.
#include "view/sounds.h"

#include <gtest/gtest.h>
#include <wx/toplevel.h>
#include <wx/utils.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "view/display_fixture.h"

namespace tidvane::tests {
namespace {

namespace fs = std::filesystem;
using view::playEmbeddedSound;
using view::playSoundFile;

class Sounds : public testing::Test {
protected:
    Sounds() { takeComplaints(); }
    // A box for a message would be one more window.
    ~Sounds() override {
        letSettle();
        EXPECT_EQ(wxTopLevelWindows.size(), windows_);
        EXPECT_EQ(takeComplaints(), std::vector<std::string>());
        std::filesystem::remove(file_);
    }
    // How long the caller has waited.
    static std::chrono::milliseconds play(const std::string& path) {
        const auto before = std::chrono::steady_clock::now();
        playSoundFile(path);
        return std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - before);
    }
    std::string fileWith(const std::string& bytes) {
        std::ofstream(file_, std::ios::binary) << bytes;
        return file_.string();
    }

private:
    std::size_t windows_ = wxTopLevelWindows.size();
    std::filesystem::path file_ =
        std::filesystem::temp_directory_path() / ("tidvane-sound-" + std::to_string(wxGetProcessId()) + ".wav");
};

// Nothing waits for a sound, or for somebody who closes a box.
constexpr std::chrono::seconds kNoticed{5};

TEST_F(Sounds, OfAFileReturnAtOnce) {
    EXPECT_LT(play(TIDVANE_SOURCE_DIR "/data/sounds/group.wav"), kNoticed);
}

TEST_F(Sounds, OfTheProgramReturnAtOnceAndUnknownOnesAreSilent) {
    playEmbeddedSound("group");
    playEmbeddedSound("no such sound");
}

TEST_F(Sounds, OfAMissingFileAreSilent) {
    EXPECT_LT(play("/no/such/sound.wav"), kNoticed);
    EXPECT_LT(play(""), kNoticed);
    EXPECT_LT(play("/"), kNoticed);
}

TEST_F(Sounds, OfAFileThatIsNoneAreSilent) {
    EXPECT_LT(play(fileWith("")), kNoticed);
    EXPECT_LT(play(fileWith("RIFF")), kNoticed);
    EXPECT_LT(play(fileWith(std::string("RIFF\x7f\xff\xff\x7fWAVEfmt \x10\x00\x00\x00", 20))), kNoticed);
    EXPECT_LT(play(fileWith(std::string(100000, 'x'))), kNoticed);
}

// The only player of the host; it waits for its turn, says something, and keeps the path and the sound that it is to
// play.
class SoundsWithAPlayer : public Sounds {
protected:
    SoundsWithAPlayer() {
        fs::create_directory(folder_);
        const std::string heard = heardPath().string();
        std::ofstream(folder_ / "paplay")
            << "#!/bin/sh\nrounds=0\nwhile [ ! -e '" << turnPath().string()
            << "' ] && [ $rounds -lt 200 ]; do /bin/sleep 0.05; rounds=$((rounds + 1)); done\n/bin/cat \"$1\" > '"
            << heard << ".part'\necho \"$1\" > '" << heard << ".path'\n/bin/mv '" << heard << ".part' '" << heard
            << "'\necho noise\n";
        fs::permissions(folder_ / "paplay", fs::perms::owner_all);
        ::setenv("PATH", folder_.c_str(), 1);
    }
    ~SoundsWithAPlayer() override {
        ::setenv("PATH", before_.c_str(), 1);
        fs::remove_all(folder_);
    }
    [[nodiscard]] fs::path heardPath() const { return folder_ / "heard"; }
    [[nodiscard]] fs::path turnPath() const { return folder_ / "turn"; }
    void letItPlay() const { std::ofstream(turnPath()) << "now"; }
    [[nodiscard]] bool waitUntilPlayed() const {
        return letRunUntil([this] { return fs::exists(heardPath()); }, 10000);
    }
    static std::string bytesOf(const fs::path& path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

private:
    fs::path folder_ = fs::temp_directory_path() / ("tidvane-players-" + std::to_string(wxGetProcessId()));
    std::string before_ = std::getenv("PATH");
};

TEST_F(SoundsWithAPlayer, OfAFileAreLeftToIt) {
    const char* file = TIDVANE_SOURCE_DIR "/data/sounds/group.wav";
    EXPECT_LT(play(file), kNoticed);
    EXPECT_FALSE(fs::exists(heardPath()));
    letItPlay();
    ASSERT_TRUE(waitUntilPlayed());
    EXPECT_EQ(bytesOf(heardPath().string() + ".path"), std::string(file) + "\n");
}

TEST_F(SoundsWithAPlayer, OfTheProgramAreLeftToItTooAsOftenAsTheyAreWanted) {
    letItPlay();
    for (const char* name : {"group", "item", "group"}) {
        playEmbeddedSound(name);
        ASSERT_TRUE(waitUntilPlayed()) << name;
        const std::string original = bytesOf(std::string(TIDVANE_SOURCE_DIR "/data/sounds/") + name + ".wav");
        ASSERT_GT(original.size(), 44U);
        EXPECT_EQ(bytesOf(heardPath()), original) << name;
        fs::remove(heardPath());
    }
}

}  // namespace
}  // namespace tidvane::tests
