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

TEST(ConsoleOptions, NameTheCommandThatDoesNotExist) {
    EXPECT_EQ(parse({"frobnicate", "--save"}).err,
              "There is no command \"frobnicate\"; --help lists those that there are.\n");
    EXPECT_EQ(parse({"lists", "replace", "folders"}).err,
              "There is no command \"replace\"; --help lists those that there are.\n");
    for (const std::vector<const char*>& missing : {std::vector<const char*>{}, {"lists"}, {"--nonsense"}}) {
        const Parsed parsed = parse(missing);
        EXPECT_EQ(parsed.status, exit_status::Usage);
        EXPECT_NE(parsed.err.find("A subcommand is required"), std::string::npos) << parsed.err;
    }
    EXPECT_NE(parse({"search", "--in", "C:\\"}).err.find("MASK is required"), std::string::npos);
}

TEST(ConsoleOptions, SayTheWordsOfAnOptionOnceInTheHelpAndInTheRefusal) {
    EXPECT_NE(parse({"run", "--help"}).out.find("--method plain|recycle|overwrite\n"), std::string::npos)
        << parse({"run", "--help"}).out;
    EXPECT_NE(parse({"run", "--method", "shred"}).err.find("\"shred\" is none of: plain, recycle, overwrite."),
              std::string::npos);
    EXPECT_NE(parse({"run", "--answer", "maybe"}).err.find("\"maybe\" is none of: yes, no."), std::string::npos);
    EXPECT_NE(parse({"lists", "show", "folder"}).err.find("\"folder\" is none of: folders, files, masks."),
              std::string::npos);
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

TEST(ConsoleOptions, ReadTheOptionsOfARunThatAsksOrForces) {
    const Parsed parsed = parse({"run", "--plugin", "7-Zip history", "--plugin", "x", "--force", "--preview",
                                 "--details", "--log", "--json", "p.json"});
    ASSERT_FALSE(parsed.status) << parsed.err;
    EXPECT_EQ(parsed.options.plugins, (std::vector<std::string>{"7-Zip history", "x"}));
    EXPECT_TRUE(parsed.options.force);
    EXPECT_TRUE(parsed.options.preview);
    EXPECT_TRUE(parsed.options.details);
    EXPECT_TRUE(parsed.options.showLog);
}

TEST(ConsoleOptions, ReadASearch) {
    const Parsed parsed =
        parse({"search", "*.tmp", "--in", "C:\\Data", "--method", "recycle", "--answer", "yes", "--preview"});
    ASSERT_FALSE(parsed.status) << parsed.err;
    EXPECT_EQ(parsed.options.command, Command::Search);
    EXPECT_EQ(parsed.options.search.mask, "*.tmp");
    EXPECT_EQ(parsed.options.search.folder, "C:\\Data");
    EXPECT_EQ(parsed.options.method, 1);
    EXPECT_TRUE(parsed.options.answerYes);
    EXPECT_TRUE(parsed.options.preview);
}

TEST(ConsoleOptions, ReadLists) {
    const Parsed add = parse({"lists", "add", "folders", "C:\\A", "C:\\B C", "--answer", "yes", "--machine", "m"});
    ASSERT_FALSE(add.status) << add.err;
    EXPECT_EQ(add.options.command, Command::Lists);
    EXPECT_EQ(add.options.lists.action, ListsAction::Add);
    EXPECT_EQ(add.options.lists.list, "folders");
    EXPECT_EQ(add.options.lists.texts, (std::vector<std::string>{"C:\\A", "C:\\B C"}));
    EXPECT_TRUE(add.options.answerYes);
    EXPECT_EQ(add.options.machine, "m");
    const Parsed remove = parse({"lists", "remove", "masks", "*.tmp", ""});
    ASSERT_FALSE(remove.status) << remove.err;
    EXPECT_EQ(remove.options.lists.action, ListsAction::Remove);
    EXPECT_EQ(remove.options.lists.texts, (std::vector<std::string>{"*.tmp", ""})) << "an empty text is one";
    EXPECT_EQ(parse({"lists", "show"}).options.lists.list, "");
    EXPECT_EQ(parse({"lists", "show", "files"}).options.lists.list, "files");
}

TEST(ConsoleOptions, ReadPlugInsCookiesAndCache) {
    const Parsed plugins = parse({"plugins", "--tick", "a", "--tick", "b", "--untick", "c", "--info", "d"});
    ASSERT_FALSE(plugins.status) << plugins.err;
    EXPECT_EQ(plugins.options.command, Command::Plugins);
    EXPECT_EQ(plugins.options.pluginList.tick, (std::vector<std::string>{"a", "b"}));
    EXPECT_EQ(plugins.options.pluginList.untick, std::vector<std::string>{"c"});
    EXPECT_EQ(plugins.options.pluginList.info, std::vector<std::string>{"d"});
    const Parsed list = parse({"cookies", "list"});
    EXPECT_EQ(list.options.command, Command::Cookies);
    EXPECT_FALSE(list.options.manager.remove);
    const Parsed remove = parse({"cookies", "delete", "a.txt", "b.txt"});
    EXPECT_TRUE(remove.options.manager.remove);
    EXPECT_EQ(remove.options.manager.names, (std::vector<std::string>{"a.txt", "b.txt"}));
    const Parsed cache = parse({"cache", "delete", "--all", "--cookies"});
    EXPECT_EQ(cache.options.command, Command::Cache);
    EXPECT_TRUE(cache.options.manager.remove);
    EXPECT_TRUE(cache.options.manager.all);
    EXPECT_TRUE(cache.options.manager.cookies);
}

TEST(ConsoleOptions, SayWhatDoesNotGoTogether) {
    struct Wrong {
        std::vector<const char*> arguments;
        const char* part;
    };
    for (const Wrong& wrong :
         {Wrong{{"run", "--preview", "--save"}, "A preview stores nothing; leave out --save or --preview.\n"},
          Wrong{{"run", "--details"}, "--details is for a preview"},
          Wrong{{"run", "--log"}, "--log is for a preview"},
          Wrong{{"search", "*.tmp"}, "--in is required"},
          Wrong{{"search", "--in", "C:\\A"}, "MASK is required"},
          Wrong{{"search"}, "required"},
          Wrong{{"lists"}, "subcommand"},
          Wrong{{"lists", "add"}, "required"},
          Wrong{{"lists", "add", "folders"}, "TEXT is required"},
          Wrong{{"lists", "add", "keys", "x"}, "keys"},
          Wrong{{"lists", "show", "folders", "x"}, "x"},
          Wrong{{"lists", "remove", "masks"}, "TEXT is required"},
          Wrong{{"cookies"}, "subcommand"},
          Wrong{{"cookies", "delete"}, "give --all"},
          Wrong{{"cookies", "delete", "a", "--all"}, "not both"},
          Wrong{{"cookies", "delete", "--cookies"}, "cookies"},
          Wrong{{"cache", "delete"}, "give --all"},
          Wrong{{"cache", "delete", "u", "--cookies"}, "is for --all"},
          Wrong{{"cache", "list", "--all"}, "--all"},
          Wrong{{"plugins", "--save"}, "--save"}}) {
        const Parsed parsed = parse(wrong.arguments);
        EXPECT_EQ(parsed.status, exit_status::Usage) << wrong.part;
        EXPECT_NE(parsed.err.find(wrong.part), std::string::npos) << parsed.err;
        EXPECT_EQ(parsed.out, "");
    }
}

TEST(ConsoleOptions, TellInTheHelpWhereATickOfAPlugInIsKept) {
    const Parsed help = parse({"plugins", "--help"});
    EXPECT_EQ(help.status, exit_status::Done);
    EXPECT_NE(help.out.find("stored at once"), std::string::npos) << help.out;
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
