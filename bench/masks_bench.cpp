// Many masks against many names.
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "base/wildcard.h"

namespace {

using namespace tidvane;

void MasksAgainstNames(benchmark::State& state) {
    std::vector<std::string> masks;
    for (std::int64_t i = 0; i < state.range(0); ++i) masks.push_back("*.m" + std::to_string(i));
    const base::MaskSet set(masks);
    std::vector<std::string> names;
    for (int i = 0; i < 1000; ++i) names.push_back("Document number " + std::to_string(i) + ".txt");
    for (auto _ : state) {
        int found = 0;
        for (const std::string& name : names) found += set.any(name) ? 1 : 0;
        benchmark::DoNotOptimize(found);
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(names.size()));
}
BENCHMARK(MasksAgainstNames)->Arg(1)->Arg(10)->Arg(49)->Arg(200);

}  // namespace
