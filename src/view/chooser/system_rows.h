// The rows of the window in which a system is chosen: what stands in them, and which of them is offered. No toolkit.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "frontend/find_systems.h"
#include "view/chooser/words.h"

namespace tidvane::view {

enum class SystemColumn { Name, Kind, Windows, User, FreeSpace, Folder };
inline constexpr int kSystemColumns = 6;

class SystemRows {
public:
    using Describe = std::function<frontend::SystemDetails(const frontend::FoundSystem&)>;

    // `home`: the user's, whose folders are shown from "~" on; may be empty.
    SystemRows(std::vector<frontend::FoundSystem> systems, Tongue tongue, std::string home, Describe describe);

    [[nodiscard]] int count() const { return static_cast<int>(rows_.size()); }
    [[nodiscard]] const frontend::FoundSystem& system(int row) const { return at(row).system; }
    [[nodiscard]] std::string cell(int row, SystemColumn column) const;
    // Nothing is known against it; one that is not described yet may be tried.
    [[nodiscard]] bool offered(int row) const;
    // One sentence about what stands against it; empty: nothing, or it is not described yet.
    [[nodiscard]] const std::string& problem(int row) const { return at(row).details.problem; }

    // Describes the first row that is not described yet and answers with it; -1: all of them are.
    int describeNext();
    // A directory that was chosen by hand: its row, which is made where there is none. Without a name it is called as
    // its folder is.
    int add(const std::string& directory, frontend::SystemKind kind, const std::string& name = {});
    // What is selected at the start: the directory chosen last, or else the first row that is offered. -1: none.
    [[nodiscard]] int suggested(const std::string& last) const;

private:
    struct Row {
        frontend::FoundSystem system;
        frontend::SystemDetails details;
        bool described = false;
    };
    [[nodiscard]] const Row& at(int row) const { return rows_.at(static_cast<std::size_t>(row)); }

    std::vector<Row> rows_;
    Tongue tongue_;
    std::string home_;
    Describe describe_;
};

}  // namespace tidvane::view
