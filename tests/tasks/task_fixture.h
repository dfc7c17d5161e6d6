// One task at a time on a machine in memory: its gate ticked, its worker called as the walk calls it.
#pragma once

#include <string>
#include <vector>

#include "app/task_catalogue.h"
#include "support/app_fixture.h"

namespace tidvane::tests {

struct TaskFixture : AppFixture {
    TaskFixture() { store({"chkLogTimestamp=1", "txtPurgeSpeed=0"}); }

    static const tasks::CleaningTask& task(int step) {
        return app::taskCatalogue()[static_cast<std::size_t>(step - 1)];
    }
    forms::CheckBox& gate(int step) {
        start();
        forms::Form* form = program.windows.get(task(step).gate.window);
        return static_cast<forms::CheckBox&>(*form->control(task(step).gate.control));
    }
    std::string name(int step) {
        start();
        return tasks::taskName(program, task(step));
    }

    // Ticks the gate, calls the worker, answers the lines that it logged.
    std::vector<std::string> run(int step, int value = 1) {
        tick(gate(step), value);
        main().log().empty();
        panels.clear();
        watch();
        task(step).worker(program, task(step));
        watching_ = false;
        return logLines();
    }
    // What panel 1 showed meanwhile, in order.
    std::vector<std::string> panels;

    std::string statusOf(int step) { return status(name(step)); }
    int iconOf(int step) { return icon(name(step)); }
    std::vector<std::string> cleaned(int step) { return {name(step) + " " + text(504) + " <OK>"}; }
    std::vector<std::string> notFound(int step) { return {name(step) + " " + text(499)}; }

    void watch() {
        watching_ = true;
        if (connected_) return;
        connected_ = true;
        main().StatusBar1.viewChanged.connect([this] {
            if (watching_ && (panels.empty() || panels.back() != panel(1))) panels.push_back(panel(1));
        });
    }

private:
    bool watching_ = false;
    bool connected_ = false;
};

}  // namespace tidvane::tests
