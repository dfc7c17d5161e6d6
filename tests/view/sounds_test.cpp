// Sounds on a machine that may have nothing to play them with.
#include "view/sounds.h"

#include <gtest/gtest.h>
#include <wx/toplevel.h>
#include <wx/utils.h>

#include <chrono>
#include <filesystem>
#include <fstream>

#include "view/display_fixture.h"

namespace tidvane::tests {
namespace {

using view::playEmbeddedSound;
using view::playSoundFile;

class Sounds : public testing::Test {
protected:
    Sounds() { takeComplaints(); }
    // A box for a message would be one more window.
    ~Sounds() override {
        letRun(20);
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

constexpr std::chrono::milliseconds kNoticed{300};

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

// A player of the host takes half a second and writes down what it is to play.
TEST_F(Sounds, OfAFileAreLeftToAPlayerOfTheHost) {
    namespace fs = std::filesystem;
    const fs::path folder = fs::temp_directory_path() / ("tidvane-players-" + std::to_string(wxGetProcessId()));
    fs::create_directory(folder);
    const fs::path heard = folder / "heard";
    std::ofstream(folder / "paplay") << "#!/bin/sh\n/bin/sleep 0.5\necho \"$1\" > '" << heard.string()
                                     << "'\necho noise\n";
    fs::permissions(folder / "paplay", fs::perms::owner_all);
    const std::string before = std::getenv("PATH");
    ::setenv("PATH", folder.c_str(), 1);
    const char* file = TIDVANE_SOURCE_DIR "/data/sounds/group.wav";
    EXPECT_LT(play(file), kNoticed);
    EXPECT_FALSE(fs::exists(heard));
    letRunUntil([&] { return fs::exists(heard) && fs::file_size(heard) > 0; });
    std::string line;
    std::getline(std::ifstream(heard) >> std::ws, line);
    EXPECT_EQ(line, file);
    ::setenv("PATH", before.c_str(), 1);
    fs::remove_all(folder);
}

}  // namespace
}  // namespace tidvane::tests
