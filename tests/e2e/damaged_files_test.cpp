// Whatever lies in the place of one of its files, the console works or refuses; it never falls over it, hangs in it or
// loses it.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <random>
#include <regex>

#include "e2e/console_run.h"

namespace tidvane::tests {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kHuge = 100u << 20u;
constexpr uid_t kNobody = 65534;

std::string anyBytes(std::size_t size) {
    std::mt19937 random(1);
    std::string bytes(size, '\0');
    for (char& byte : bytes) byte = static_cast<char>(random());
    return bytes;
}

struct Damage {
    std::string name;
    std::string content;
};

std::vector<Damage> damagesOf(const std::string& whole) {
    std::vector<Damage> damages{{"empty", ""},
                                {"binary", anyBytes(1u << 16u)},
                                {"zeros", std::string(1u << 16u, '\0')},
                                {"one endless line", std::string(1u << 16u, 'x')},
                                {"foreign behind its end", whole + anyBytes(4096)}};
    for (const std::size_t cut :
         {std::size_t{1}, whole.size() / 4, whole.size() / 2 + 1, whole.size() * 3 / 4, whole.size() - 1}) {
        damages.push_back({"cut at " + std::to_string(cut), whole.substr(0, cut)});
    }
    return damages;
}

class DamagedFile : public testing::Test {
protected:
    DamagedFile() {
        // A run before, so that all files of the program are there.
        const ProcessResult first = run_.console({"run", "--tick", "chkRunList", "--set", "txtPurgeSpeed=0", "--save"});
        EXPECT_EQ(first.status, console_status::Done) << first.err;
    }

    // A run that has one file to remove.
    ProcessResult clean(const std::vector<std::string>& more = {}) { return clean(more, run_.options()); }
    ProcessResult clean(const std::vector<std::string>& more, const ProcessOptions& options) {
        putFile(trace(), "x");
        std::vector<std::string> arguments{"run", "--tick", "chkTempFolder", "--set", "txtPurgeSpeed=0"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return run_.console(arguments, options);
    }
    [[nodiscard]] std::string trace() const { return run_.drive() + kWindowsTemp + "/trace.tmp"; }
    [[nodiscard]] bool traceIsThere() const { return fs::exists(trace()); }

    void expectWorks(const ProcessResult& result) const {
        EXPECT_EQ(misbehaviour(result), "");
        EXPECT_EQ(result.status, console_status::Done) << result.err;
        EXPECT_FALSE(traceIsThere());
    }
    // The run has done its work, and what was to be saved could not be: that is what it ends with.
    void expectWorksButDoesNotSave(const ProcessResult& result) const {
        EXPECT_EQ(misbehaviour(result), "");
        EXPECT_EQ(result.status, console_status::MachineUnusable) << result.err;
        EXPECT_FALSE(traceIsThere());
        EXPECT_NE(result.err.find("could not be stored"), std::string::npos) << result.err;
    }
    void expectRefusal(const ProcessResult& result) const {
        EXPECT_EQ(misbehaviour(result), "");
        EXPECT_EQ(result.status, console_status::MachineUnusable) << result.err;
        EXPECT_TRUE(traceIsThere()) << "refused, and yet something was removed";
    }

    // As somebody whom rights bind; the root of the host they do not.
    ProcessOptions unprivileged() const {
        ProcessOptions options = run_.options();
        if (::geteuid() == 0) options.user = kNobody;
        return options;
    }
    ProcessResult cleanUnprivileged() {
        putFile(trace(), "x");
        if (::geteuid() == 0) run_.giveTo(kNobody);
        return run_.console({"run", "--tick", "chkTempFolder", "--set", "txtPurgeSpeed=0"}, unprivileged());
    }

    ConsoleRun run_;
};

bool isWholeLastRun(const std::string& text) {
    static const std::regex form("#\\d{4}-\\d\\d-\\d\\d#\r\n#\\d\\d:\\d\\d:\\d\\d#\r\n");
    return std::regex_match(text, form);
}

}  // namespace

// --- td_config.ini ---------------------------------------------------------------------------------------------------

TEST_F(DamagedFile, ConfigurationCostsItsSettingsAndStaysAsItIs) {
    for (const Damage& damage : damagesOf(run_.programFile("td_config.ini"))) {
        SCOPED_TRACE(damage.name);
        run_.putProgramFile("td_config.ini", damage.content);
        expectWorks(clean());
        EXPECT_TRUE(run_.programFile("td_config.ini") == damage.content);
    }
}

TEST_F(DamagedFile, ConfigurationThatIsDamagedTakesNewSettings) {
    for (const Damage& damage : damagesOf(run_.programFile("td_config.ini"))) {
        SCOPED_TRACE(damage.name);
        run_.putProgramFile("td_config.ini", damage.content);
        const ProcessResult saved = run_.console({"settings", "--set", "txtPurgeSpeed=77", "--save"});
        EXPECT_EQ(misbehaviour(saved), "");
        EXPECT_EQ(saved.status, console_status::Done);
        EXPECT_NE(run_.console({"settings"}).out.find("frmOptions.txtPurgeSpeed=77"), std::string::npos);
    }
}

TEST_F(DamagedFile, HugeConfigurationCostsNoTimeAndStaysAsItIs) {
    std::string content = "[frmOptions]\r\n";
    content.reserve(kHuge + 64);
    for (int i = 0; content.size() < kHuge; ++i) content += "chkNothing" + std::to_string(i) + "=1\r\n";
    run_.putProgramFile("td_config.ini", content);
    const ProcessResult result = clean({"--save"});
    expectWorksButDoesNotSave(result);
    EXPECT_TRUE(run_.programFile("td_config.ini") == content) << "cut or changed";
}

TEST_F(DamagedFile, ConfigurationThatMayNotBeReadIsAnEmptyOne) {
    const std::string content = run_.programFile("td_config.ini");
    ::chmod((run_.program() + "/td_config.ini").c_str(), 0);
    expectWorks(cleanUnprivileged());
    ::chmod((run_.program() + "/td_config.ini").c_str(), 0600);
    EXPECT_EQ(run_.programFile("td_config.ini"), content);
}

// --- English.lng -----------------------------------------------------------------------------------------------------

TEST_F(DamagedFile, LanguageCostsItsTexts) {
    for (const Damage& damage : damagesOf(run_.programFile("English.lng"))) {
        SCOPED_TRACE(damage.name);
        run_.putProgramFile("English.lng", damage.content);
        expectWorks(clean());
        EXPECT_TRUE(run_.programFile("English.lng") == damage.content);
    }
}

TEST_F(DamagedFile, LanguageWithoutNamesForTheMethodsRefusesToRecycle) {
    run_.putProgramFile("English.lng", "");
    const ProcessResult result = clean({"--method", "recycle"});
    EXPECT_EQ(misbehaviour(result), "");
    EXPECT_EQ(result.status, console_status::Usage) << result.err;
    EXPECT_TRUE(traceIsThere());
}

TEST_F(DamagedFile, HugeLanguageWorks) {
    std::string content;
    content.reserve(kHuge + 64);
    while (content.size() < kHuge) content += "432 a text that stands here again and again\r\n";
    run_.putProgramFile("English.lng", content);
    expectWorks(clean());
    fs::resize_file(run_.program() + "/English.lng", 0);
    fs::resize_file(run_.program() + "/English.lng", kHuge);  // zeros
    expectWorks(clean());
}

TEST_F(DamagedFile, LanguageThatMayNotBeReadWorks) {
    ::chmod((run_.program() + "/English.lng").c_str(), 0);
    expectWorks(cleanUnprivileged());
}

// --- td_last.dat -----------------------------------------------------------------------------------------------------

TEST_F(DamagedFile, LastRunIsWrittenAnew) {
    for (const Damage& damage : damagesOf(run_.programFile("td_last.dat"))) {
        SCOPED_TRACE(damage.name);
        run_.putProgramFile("td_last.dat", damage.content);
        expectWorks(clean());
        EXPECT_TRUE(isWholeLastRun(run_.programFile("td_last.dat"))) << run_.programFile("td_last.dat");
    }
}

TEST_F(DamagedFile, HugeLastRunIsWrittenAnew) {
    fs::resize_file(run_.program() + "/td_last.dat", kHuge);
    expectWorks(clean());
    EXPECT_TRUE(isWholeLastRun(run_.programFile("td_last.dat")));
}

TEST_F(DamagedFile, LastRunThatMayNotBeReadWorks) {
    ::chmod((run_.program() + "/td_last.dat").c_str(), 0);
    expectWorks(cleanUnprivileged());
}

// --- the registry ----------------------------------------------------------------------------------------------------

TEST_F(DamagedFile, RegistryStaysAsItIsWhetherItCanBeUsedOrNot) {
    for (const char* file : {"system.reg", "user.reg"}) {
        const std::string whole = run_.machineFile(file);
        for (const Damage& damage : damagesOf(whole)) {
            SCOPED_TRACE(std::string(file) + ": " + damage.name);
            run_.putMachineFile(file, damage.content);
            const ProcessResult result = clean();
            EXPECT_EQ(misbehaviour(result), "");
            EXPECT_TRUE(run_.machineFile(file) == damage.content);
            if (result.status == console_status::Done) {
                EXPECT_FALSE(traceIsThere());
            } else {
                expectRefusal(result);
                EXPECT_NE(result.err.find(file), std::string::npos) << result.err;
            }
        }
        run_.putMachineFile(file, whole);
    }
}

TEST_F(DamagedFile, RegistryThatIsNoneIsRefused) {
    for (const char* file : {"system.reg", "user.reg"}) {
        const std::string whole = run_.machineFile(file);
        for (const std::string& content :
             {std::string(), anyBytes(4096), std::string("REGEDIT4\r\n"), whole.substr(0, 10)}) {
            run_.putMachineFile(file, content);
            expectRefusal(clean());
            EXPECT_TRUE(run_.machineFile(file) == content);
        }
        run_.putMachineFile(file, whole);
    }
}

TEST_F(DamagedFile, HugeRegistryIsCleaned) {
    const std::string key = "[Software\\\\Microsoft\\\\Windows\\\\CurrentVersion\\\\Explorer\\\\RunMRU]";
    std::string content = run_.machineFile("user.reg") + "\n" + key + " 1700000000\n\"a\"=\"notepad\\\\1\"\n";
    std::string data;
    for (int i = 0; i < 200; ++i) data += "0a,";
    content.reserve(kHuge + 4096);
    for (int i = 0; content.size() < kHuge; ++i) {
        content += "\n[Software\\\\Bulk\\\\Key" + std::to_string(i) + "] 1700000000\n\"Data\"=hex:" + data + "0b\n";
    }
    run_.putMachineFile("user.reg", content);
    expectWorks(clean({"--tick", "chkRunList"}));
    const std::string after = run_.machineFile("user.reg");
    EXPECT_EQ(after.find(key), std::string::npos);
    EXPECT_GT(after.size() + 4096, content.size());
}

TEST_F(DamagedFile, HugeRegistryOfZerosIsRefused) {
    fs::resize_file(run_.machine() + "/system.reg", 0);
    fs::resize_file(run_.machine() + "/system.reg", kHuge);
    expectRefusal(clean());
    EXPECT_EQ(fs::file_size(run_.machine() + "/system.reg"), kHuge);
}

TEST_F(DamagedFile, RegistryThatMayNotBeReadIsRefused) {
    for (const char* file : {"system.reg", "user.reg"}) {
        ::chmod((run_.machine() + "/" + file).c_str(), 0);
        expectRefusal(cleanUnprivileged());
        ::chmod((run_.machine() + "/" + file).c_str(), 0600);
    }
}

TEST_F(DamagedFile, MachineThatMayNotBeWrittenToIsRefused) {
    putFile(trace(), "x");
    if (::geteuid() == 0) run_.giveTo(kNobody);
    for (const char* file : {"system.reg", "user.reg"}) {
        ::chmod((run_.machine() + "/" + file).c_str(), 0400);
        expectRefusal(run_.console({"run", "--tick", "chkTempFolder", "--set", "txtPurgeSpeed=0"}, unprivileged()));
        ::chmod((run_.machine() + "/" + file).c_str(), 0600);
    }
}

// --- something else in its place -------------------------------------------------------------------------------------

TEST_F(DamagedFile, FolderInThePlaceOfAFileStaysThere) {
    for (const char* name : {"td_config.ini", "English.lng", "td_last.dat"}) {
        SCOPED_TRACE(name);
        const std::string place = run_.program() + "/" + name;
        fs::remove(place);
        putFile(place + "/inside", "kept");
        const ProcessResult result = clean({"--save"});
        if (std::string(name) == "td_config.ini") {
            expectWorksButDoesNotSave(result);
        } else {
            expectWorks(result);
        }
        EXPECT_EQ(contentOfFile(place + "/inside"), "kept");
        fs::remove_all(place);
    }
    for (const char* name : {"system.reg", "user.reg"}) {
        SCOPED_TRACE(name);
        const std::string place = run_.machine() + "/" + name;
        fs::rename(place, place + ".kept");
        putFile(place + "/inside", "kept");
        expectRefusal(clean());
        EXPECT_EQ(contentOfFile(place + "/inside"), "kept");
        fs::remove_all(place);
        fs::rename(place + ".kept", place);
    }
}

TEST_F(DamagedFile, FifoInThePlaceOfAFileIsNotWaitedFor) {
    for (const char* name : {"td_config.ini", "English.lng", "td_last.dat", "td_log.txt"}) {
        SCOPED_TRACE(name);
        const std::string place = run_.program() + "/" + name;
        fs::remove(place);
        ASSERT_EQ(::mkfifo(place.c_str(), 0600), 0);
        const ProcessResult result = clean({"--save"});
        if (std::string(name) == "td_config.ini") {
            expectWorksButDoesNotSave(result);
        } else {
            expectWorks(result);
        }
        fs::remove(place);
    }
    for (const char* name : {"system.reg", "user.reg"}) {
        SCOPED_TRACE(name);
        const std::string place = run_.machine() + "/" + name;
        fs::rename(place, place + ".kept");
        ASSERT_EQ(::mkfifo(place.c_str(), 0600), 0);
        expectRefusal(clean());
        fs::remove(place);
        fs::rename(place + ".kept", place);
    }
}

}  // namespace tidvane::tests
