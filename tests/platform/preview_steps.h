// Steps of all kinds that a cleaning consists of, drawn by chance.
#pragma once

#include <random>
#include <string>
#include <vector>

#include "platform/preview_trial.h"

namespace tidvane::tests {

struct DrawnSteps {
    std::vector<Step> steps;
    std::vector<std::string> labels;
    bool renames = false;  // entries get other names, or are made
};

// `paths`: Windows paths of the entries there are, the folders among them first.
DrawnSteps drawSteps(std::mt19937& random, const std::vector<std::string>& folders,
                     const std::vector<std::string>& files, std::size_t count);

}  // namespace tidvane::tests
