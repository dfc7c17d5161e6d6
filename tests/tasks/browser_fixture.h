// The tasks of the browsers on a machine whose user has all four of them.
#pragma once

#include <algorithm>
#include <iterator>
#include <string>
#include <vector>

#include "settings/frmChromeDir.h"
#include "settings/frmMozillaDir.h"
#include "settings/frmOperaDir.h"
#include "settings/frmSafariDir.h"
#include "tasks/task_fixture.h"

namespace tidvane::tests {

inline const std::string kRoaming = "C:\\Users\\Anna\\AppData\\Roaming";
inline const std::string kLocal = "C:\\Users\\Anna\\AppData\\Local";

using Paths = std::vector<std::string>;

struct BrowserTasks : TaskFixture {
    // One byte each, so that a count is a size too.
    void put(const Paths& files) {
        for (const std::string& file : files) {
            if (file.back() == '\\') {
                machine.files.putFolder(file.substr(0, file.size() - 1));
            } else {
                machine.files.putFile(file, "x");
            }
        }
    }
    Paths everything() const { return machine.files.everythingBelow("C:\\Users\\Anna"); }

    // Runs the step; answers what is gone from the user's folders, sorted, a folder with its backslash. The lines of
    // the log stay in `lines`.
    Paths gone(int step) {
        start();
        const Paths before = everything();
        lines = run(step);
        const Paths after = everything();
        Paths difference;
        std::set_difference(before.begin(), before.end(), after.begin(), after.end(), std::back_inserter(difference));
        EXPECT_TRUE(std::includes(before.begin(), before.end(), after.begin(), after.end())) << "something came new";
        return difference;
    }
    std::vector<std::string> lines;

    static Paths sorted(Paths paths) {
        std::sort(paths.begin(), paths.end());
        return paths;
    }

    void expectRow(int step, int statusText, int icon) {
        EXPECT_EQ(statusOf(step), text(statusText)) << step;
        EXPECT_EQ(iconOf(step), icon) << step;
    }
    // What a ticked step shows in panel 1: no blank in front of the dots.
    std::vector<std::string> workingOn(int step) { return {text(503) + " " + name(step) + "..."}; }
    std::string counts(const std::string& label, int files) {
        return label + " " + std::to_string(files) + " " + text(500) + " (" + std::to_string(files) + " Byte)";
    }
    std::string counts(int step, int files) { return counts(name(step), files); }
    std::string inDepth(int step, const std::string& what) {
        return name(step) + " (" + what + ") " + text(504) + " <OK>";
    }
    std::vector<std::string> missing(int step) { return {name(step) + " " + text(550)}; }

    void method(int row) {
        start();
        options().cboKillMethod.setListIndex(row);
    }
    Paths recycled() const {
        Paths paths;
        for (const auto& item : machine.shell.recycled) paths.push_back(item.originalPath);
        return paths;
    }

    // With the location box off a ticked step does no more than the first steps of every worker.
    template <class Window>
    void expectNothingWithoutLocation(const std::vector<int>& steps) {
        start();
        for (const int value : {0, 2}) {
            program.get<Window>().usable.Value = value;
            for (const int step : steps) {
                machine.clock.sleptMilliseconds = 0;
                options().txtPurgeSpeed.setText("7");
                EXPECT_EQ(gone(step), Paths{}) << step;
                options().txtPurgeSpeed.setText("0");
                EXPECT_TRUE(lines.empty()) << step;
                EXPECT_EQ(panels, workingOn(step)) << step;
                EXPECT_EQ(statusOf(step), text(505)) << step;
                EXPECT_LT(iconOf(step), 9) << step;
                EXPECT_TRUE(main().lstTasks.item(name(step))->selected) << step;
                EXPECT_EQ(machine.clock.sleptMilliseconds, 7) << step;
            }
        }
    }

    // The first steps of every worker: unticked, greyed, stopped.
    void expectCommonSteps(const std::vector<int>& steps) {
        start();
        for (const int step : steps) {
            for (const int value : {0, 2}) {
                EXPECT_EQ(run(step, value), std::vector<std::string>{name(step) + " " + text(509)}) << step;
                EXPECT_EQ(panels, (std::vector<std::string>{name(step) + " " + text(509), text(507)})) << step;
            }
        }
        main().cmdStop_Click();
        for (const int step : steps) {
            EXPECT_EQ(gone(step), Paths{}) << step;
            EXPECT_TRUE(lines.empty()) << step;
            EXPECT_EQ(statusOf(step), text(506)) << step;
        }
    }

    // The whole of the profile stays as it is, and the step says that it has removed all.
    void expectLockedFilesToBeCalledCleaned(int step, const Paths& files) {
        for (const std::string& file : files) machine.files.lock(file);
        EXPECT_EQ(gone(step), Paths{}) << step;
        EXPECT_EQ(lines, cleaned(step)) << step;
        expectRow(step, 507, 9);
    }
};

}  // namespace tidvane::tests
