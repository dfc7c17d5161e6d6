// Trees of the host with everything in them that a cleaner may come across, made out of a number.
#pragma once

#include <random>
#include <string>
#include <vector>

namespace tidvane::tests {

struct RandomTreeOptions {
    std::size_t entries = 40;
    // Owners, sticky and sealed folders, folders that cannot be looked into: made only with the rights of a superuser.
    bool rights = false;
    unsigned otherUser = 0;  // who owns most of it where `rights` is set
    bool sealed = false;     // files and folders that nobody may change (the "immutable" flag), where the volume has it
};

// Fills the directory `root`, which exists. The folders below it come back, as paths below `root`.
std::vector<std::string> makeRandomTree(const std::string& root, std::mt19937& random,
                                        const RandomTreeOptions& options);

// Takes the seals off again, so that the tree can be removed.
void unseal(const std::string& root);

}  // namespace tidvane::tests
