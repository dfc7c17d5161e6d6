// What a preview says is what the same steps then really do: on many random trees, with all ways of removing.
#include <grp.h>
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <stdexcept>

#include "platform/preview_steps.h"
#include "platform/preview_trial.h"
#include "support/random_tree.h"
#include "support/tree_state.h"

namespace tidvane::tests {
namespace {

namespace fs = std::filesystem;

constexpr const char* kKeys =
    "\n[Software\\\\Case\\\\One] 1700000000\n@=\"default\"\n\"a\"=\"1\"\n\"b\"=dword:00000002\n"
    "\n[Software\\\\Case\\\\One\\\\Deep] 1700000000\n\"a\"=\"1\"\n"
    "\n[Software\\\\Case\\\\One\\\\Deep\\\\Deeper] 1700000000\n"
    "\n[Software\\\\Case\\\\Two] 1700000000\n\"b\"=\"1\"\n"
    "\n[Software\\\\Case\\\\Two\\\\a] 1700000000\n"
    "\n[Software\\\\Case\\\\Two\\\\a\\\\b] 1700000000\n\"a\"=\"1\"\n\"c\"=hex:01,02\n"
    "\n[Software\\\\Case\\\\Three] 1700000000\n\"a\"=\"1\"\n";

// The entries of the case as Windows paths, folders apart.
void pathsOf(const std::string& root, std::vector<std::string>& folders, std::vector<std::string>& files) {
    folders.push_back(PreviewTrial::kCase);
    for (const fs::path& entry : entriesBelow(root)) {
        std::string path = PreviewTrial::kCase + entry.string().substr(root.size());
        std::replace(path.begin(), path.end(), '/', '\\');
        std::error_code ignored;
        (fs::is_directory(fs::symlink_status(entry, ignored)) ? folders : files).push_back(path);
    }
    std::sort(folders.begin(), folders.end());
    std::sort(files.begin(), files.end());
}

unsigned seedsFromEnvironment(const char* name, unsigned usual) {
    const char* text = std::getenv(name);
    return text == nullptr ? usual : static_cast<unsigned>(std::atoi(text));
}

std::string runSeed(PreviewTrial& trial, unsigned seed, const RandomTreeOptions& options,
                    const std::function<void()>& before = {}) {
    std::mt19937 random(seed);
    trial.reset();
    trial.addToRegistry(kKeys);
    (void)makeRandomTree(trial.caseFolder(), random, options);
    if (before) before();
    std::vector<std::string> folders;
    std::vector<std::string> files;
    pathsOf(trial.caseFolder(), folders, files);
    const DrawnSteps drawn = drawSteps(random, folders, files, 1 + random() % 6);
    std::string problems = trial.run(drawn.steps, drawn.renames);
    if (problems.empty()) return {};
    problems += "seed " + std::to_string(seed) + "\n";
    for (const std::string& label : drawn.labels) problems += "  " + label + "\n";
    return problems;
}

// TIDVANE_PREVIEW_SEEDS tries more of them, TIDVANE_PREVIEW_SEED begins elsewhere.
std::string runSeeds(const HostDirectory& host, const RandomTreeOptions& options, unsigned usual) {
    PreviewTrial trial(host);
    const unsigned first = seedsFromEnvironment("TIDVANE_PREVIEW_SEED", 1);
    const unsigned count = seedsFromEnvironment("TIDVANE_PREVIEW_SEEDS", usual);
    for (unsigned seed = first; seed < first + count; ++seed) {
        std::string problems = runSeed(trial, seed, options);
        if (!problems.empty()) return problems;
    }
    return {};
}

// Does something in a process of its own, and gives back what it said.
std::string inChild(const std::function<std::string()>& work) {
    int ends[2];
    if (::pipe(ends) != 0) return "no pipe";
    const pid_t child = ::fork();
    if (child == 0) {
        ::close(ends[0]);
        std::string said;
        try {
            said = work();
        } catch (const std::exception& problem) {
            said = problem.what();
        }
        for (std::size_t at = 0; at < said.size();) {
            const ssize_t written = ::write(ends[1], said.data() + at, said.size() - at);
            if (written <= 0) break;
            at += static_cast<std::size_t>(written);
        }
        ::_exit(0);
    }
    ::close(ends[1]);
    std::string said;
    char block[4096];
    for (ssize_t got = 0; (got = ::read(ends[0], block, sizeof block)) > 0;)
        said.append(block, static_cast<std::size_t>(got));
    ::close(ends[0]);
    int status = 0;
    ::waitpid(child, &status, 0);
    if (!WIFEXITED(status)) said += "the process ended by signal " + std::to_string(WTERMSIG(status));
    return said;
}

constexpr unsigned kNobody = 65534;

bool becomeNobody() {
    return ::setgroups(0, nullptr) == 0 && ::setresgid(kNobody, kNobody, kNobody) == 0 &&
           ::setresuid(kNobody, kNobody, kNobody) == 0;
}

void giveToNobody(const std::string& path) {
    (void)::lchown(path.c_str(), kNobody, kNobody);
    for (const fs::path& entry : entriesBelow(path)) (void)::lchown(entry.c_str(), kNobody, kNobody);
}

TEST(PreviewEquality, RandomTreesGoAsThePreviewSaid) {
    const HostDirectory host;
    EXPECT_EQ(runSeeds(host, {}, 100), "");
}

TEST(PreviewEquality, SealedFilesAndFoldersStayAsThePreviewSaid) {
    std::string place;
    {
        const HostDirectory host;
        place = host.path();
        RandomTreeOptions options;
        options.sealed = true;
        EXPECT_EQ(runSeeds(host, options, 40), "");
    }
    EXPECT_FALSE(fs::exists(place)) << "a seal is left somewhere";
}

// Without the rights of a superuser much more is refused: foreign files in sticky folders, read-only folders, folders
// that cannot be listed or searched.
TEST(PreviewEquality, WhatThisUserMayNotRemoveStaysAsThePreviewSaid) {
    if (::geteuid() != 0) {
        const HostDirectory host;
        EXPECT_EQ(runSeeds(host, {}, 40), "");  // the whole suite runs without such rights
        return;
    }
    const unsigned first = seedsFromEnvironment("TIDVANE_PREVIEW_SEED", 1);
    const unsigned count = seedsFromEnvironment("TIDVANE_PREVIEW_SEEDS", 40);
    const HostDirectory host;
    PreviewTrial trial(host);
    RandomTreeOptions options;
    options.rights = true;
    options.otherUser = kNobody;
    for (unsigned seed = first; seed < first + count; ++seed) {
        trial.reset();
        giveToNobody(host.path());
        const std::string problems = inChild([&] {
            return runSeed(trial, seed, options, [] {
                if (!becomeNobody()) throw std::runtime_error("the rights cannot be given up");
            });
        });
        ASSERT_EQ(problems, "");
    }
}

// A mount in the middle of what goes: it stays, with the folders above it.
TEST(PreviewEquality, MountsStayAsThePreviewSaid) {
    const HostDirectory host;
    PreviewTrial trial(host);
    std::string problems;
    bool mounted = true;
    for (unsigned seed = 1; seed <= 15 && mounted && problems.empty(); ++seed) {
        problems = inChild([&]() -> std::string {
            if (::unshare(CLONE_NEWNS) != 0 || ::mount("", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0)
                return "no mounts here";
            return runSeed(trial, seed, {}, [&] {
                std::vector<std::string> folders;
                std::vector<std::string> files;
                pathsOf(trial.caseFolder(), folders, files);
                fs::path place = trial.caseFolder();
                for (const auto& entry : fs::recursive_directory_iterator(place)) {
                    if (entry.is_directory() && !entry.is_symlink()) place = entry.path();
                }
                if (::mount("none", place.c_str(), "tmpfs", 0, nullptr) != 0)
                    throw std::runtime_error("no mounts here");
                std::ofstream(place / "foreign.tmp") << "1";
                std::ofstream(trial.caseFolder() + "/mountedfile.tmp") << "1";
                std::ofstream(host.path() + "/file") << "1";
                (void)::mount((host.path() + "/file").c_str(), (trial.caseFolder() + "/mountedfile.tmp").c_str(),
                              nullptr, MS_BIND, nullptr);
            });
        });
        mounted = problems != "no mounts here";
    }
    if (!mounted) GTEST_SKIP() << "This process may not mount anything.";
    EXPECT_EQ(problems, "");
}

}  // namespace
}  // namespace tidvane::tests
