#include "console/options.h"

#include <gtest/gtest.h>

#include <sstream>

namespace tidvane::console {
namespace {

struct Parsed {
    std::optional<int> status;
    Options options;
    std::string out;
    std::string err;
};

Parsed parse(std::vector<const char*> arguments) {
    arguments.insert(arguments.begin(), "tidvane-console");
    Parsed parsed;
    std::ostringstream out;
    std::ostringstream err;
    parsed.status =
        parseOptions(static_cast<int>(arguments.size()), arguments.data(), "9.8.7", parsed.options, out, err);
    parsed.out = out.str();
    parsed.err = err.str();
    return parsed;
}

TEST(ConsoleOptions, ReadsARunWithEverything) {
    const Parsed parsed =
        parse({"run",       "--method", "overwrite",   "--set",  "txtPurgeSpeed=0", "--set",     "a.b=c=d",
               "--tick",    "windows",  "--tick",      "ie",     "--untick",        "chkTrash",  "--answer",
               "yes",       "--save",   "--json",      "r.json", "--quiet",         "--machine", "m",
               "--program", "p",        "--arguments", "/AUTO x"});
    ASSERT_FALSE(parsed.status) << parsed.err;
    const Options& options = parsed.options;
    EXPECT_EQ(options.command, Command::Run);
    EXPECT_EQ(options.method, 2);
    EXPECT_EQ(options.set, (std::vector<std::string>{"txtPurgeSpeed=0", "a.b=c=d"}));
    EXPECT_EQ(options.tick, (std::vector<std::string>{"windows", "ie"}));
    EXPECT_EQ(options.untick, std::vector<std::string>{"chkTrash"});
    EXPECT_TRUE(options.answerYes);
    EXPECT_TRUE(options.save);
    EXPECT_TRUE(options.quiet);
    EXPECT_EQ(options.json, "r.json");
    EXPECT_EQ(options.machine, "m");
    EXPECT_EQ(options.program, "p");
    EXPECT_EQ(options.arguments, "/AUTO x");
}

TEST(ConsoleOptions, AreModestWithoutAnyOption) {
    const Parsed parsed = parse({"run"});
    ASSERT_FALSE(parsed.status);
    EXPECT_FALSE(parsed.options.method);
    EXPECT_FALSE(parsed.options.answerYes);
    EXPECT_FALSE(parsed.options.save);
    EXPECT_FALSE(parsed.options.quiet);
}

TEST(ConsoleOptions, TakeCommonOptionsOnBothSidesOfTheCommand) {
    EXPECT_EQ(parse({"--machine", "m", "tasks"}).options.machine, "m");
    EXPECT_EQ(parse({"tasks", "--machine", "m"}).options.machine, "m");
    EXPECT_EQ(parse({"machine", "info", "--machine", "m"}).options.machine, "m");
}

TEST(ConsoleOptions, TellTheCommandsApart) {
    EXPECT_EQ(parse({"tasks"}).options.command, Command::Tasks);
    EXPECT_EQ(parse({"settings"}).options.command, Command::Settings);
    EXPECT_EQ(parse({"machine", "info"}).options.command, Command::MachineInfo);
    const Parsed create = parse({"machine", "create", "there", "--sample"});
    EXPECT_EQ(create.options.command, Command::MachineCreate);
    EXPECT_EQ(create.options.directory, "there");
    EXPECT_TRUE(create.options.sample);
}

TEST(ConsoleOptions, AnswerWrongUseWithStatus2OnTheErrorStream) {
    for (const auto& arguments : std::vector<std::vector<const char*>>{{},
                                                                       {"clean"},
                                                                       {"run", "--method", "shred"},
                                                                       {"run", "--answer", "maybe"},
                                                                       {"run", "--set"},
                                                                       {"run", "windows"},
                                                                       {"machine"},
                                                                       {"machine", "create"},
                                                                       {"tasks", "--save"}}) {
        const Parsed parsed = parse(arguments);
        EXPECT_EQ(parsed.status, exit_status::Usage);
        EXPECT_FALSE(parsed.err.empty());
        EXPECT_EQ(parsed.out, "");
    }
}

TEST(ConsoleOptions, RefuseAnEmptyPathWithASentence) {
    for (const std::vector<const char*>& arguments :
         std::vector<std::vector<const char*>>{{"run", "--machine", ""},
                                               {"--machine", "", "tasks"},
                                               {"--machine", "/m", "--program", "", "settings"},
                                               {"run", "--json", ""},
                                               {"machine", "create", ""},
                                               {"machine", "info", "--machine", ""}}) {
        const Parsed parsed = parse(arguments);
        EXPECT_EQ(parsed.status, exit_status::Usage);
        EXPECT_NE(parsed.err.find("is empty"), std::string::npos) << parsed.err;
        EXPECT_EQ(parsed.out, "");
    }
    EXPECT_FALSE(parse({"--arguments", "", "run"}).status) << "no path";
}

TEST(ConsoleOptions, ShowHelpAndVersionOnTheOutput) {
    const Parsed help = parse({"--help"});
    EXPECT_EQ(help.status, exit_status::Done);
    EXPECT_NE(help.out.find("machine"), std::string::npos);
    const Parsed runHelp = parse({"run", "--help"});
    EXPECT_EQ(runHelp.status, exit_status::Done);
    EXPECT_NE(runHelp.out.find("--untick"), std::string::npos);
    const Parsed version = parse({"--version"});
    EXPECT_EQ(version.status, exit_status::Done);
    EXPECT_EQ(version.out, "tidvane-console 9.8.7\n");
}

TEST(ConsoleOptions, NameTheMethodsByTheirRows) {
    EXPECT_STREQ(methodName(0), "plain");
    EXPECT_STREQ(methodName(1), "recycle");
    EXPECT_STREQ(methodName(2), "overwrite");
    EXPECT_STREQ(methodName(-1), "none");
}

}  // namespace
}  // namespace tidvane::console
