// What a line of the log costs: the time of N lines must grow with N, with the replacement of umlauts too.
#include <benchmark/benchmark.h>

#include "app/all_windows.h"
#include "app/frmMain.h"
#include "console/console_display.h"
#include "platform/memory/memory_platform.h"
#include "settings/frmOptions.h"
#include "settings/program.h"

#include <sstream>

namespace {

using namespace tidvane;

void logLines(benchmark::State& state, bool umlauts) {
    platform::MemoryPlatform machine;
    std::ostringstream err;
    console::ConsoleDisplay display(err, false);
    settings::Program program(machine.platform(), display);
    app::offerAllWindows(program);
    auto& main = program.get<app::frmMain>();
    auto& options = program.get<settings::frmOptions>();
    options.chkReplaceGerUmlaut.Value = umlauts ? 1 : 0;
    options.txtLogAutoTruncated.setText("no limit");
    for (auto _ : state) {
        main.log().empty();
        for (std::int64_t i = 0; i < state.range(0); ++i) {
            main.AddLogLine("C:\\Users\\Jörg\\AppData\\Local\\Temp\\größe.tmp <OK>");
        }
    }
    state.SetComplexityN(state.range(0));
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void LogLines(benchmark::State& state) {
    logLines(state, false);
}
void LogLinesWithUmlautsReplaced(benchmark::State& state) {
    logLines(state, true);
}

BENCHMARK(LogLines)->RangeMultiplier(10)->Range(1000, 100000)->Complexity()->Unit(benchmark::kMillisecond);
BENCHMARK(LogLinesWithUmlautsReplaced)
    ->RangeMultiplier(10)
    ->Range(1000, 100000)
    ->Complexity()
    ->Unit(benchmark::kMillisecond);

}  // namespace
