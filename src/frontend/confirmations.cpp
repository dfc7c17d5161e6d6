#include "frontend/confirmations.h"

#include <algorithm>
#include <array>

#include "base/text.h"
#include "frontend/guards.h"
#include "frontend/own_masks.h"
#include "frontend/split_lines.h"
#include "registry/clear_registry_tree.h"
#include "settings/frmOptions.h"
#include "settings/list_files.h"
#include "settings/own_entries.h"
#include "settings/sentences.h"

namespace tidvane::frontend {

using settings::englishSentence;
using settings::Sentence;
using settings::sentence;

namespace {

constexpr const char* kLineEnd = "\r\n";
constexpr const char* kTitle = "Tidvane";

// The masks, for a sentence; empty: no matter.
std::string masksOfEveryName(settings::Program& program) {
    if (!program.get<settings::frmOptions>().chkSearchTasks.ticked()) return {};
    std::string masks;
    for (const std::string& mask : settings::masksThatMatchEveryName(program)) {
        masks += (masks.empty() ? "\"" : ", \"") + mask + "\"";
    }
    return masks;
}

}  // namespace

std::string questionOfMasks(settings::Program& program) {
    const std::string masks = masksOfEveryName(program);
    if (masks.empty()) return {};
    return sentence(program, Sentence::EveryNameMatches, {masks}) + "." + kLineEnd + kLineEnd +
           sentence(program, Sentence::CleanAllTheSame);
}

std::string refusalOfMasks(settings::Program& program) {
    const std::string masks = masksOfEveryName(program);
    if (masks.empty()) return {};
    return englishSentence(Sentence::EveryNameMatches, {masks}) +
           "; take that out with \"lists remove masks\", untick chkSearchTasks, or give --force.";
}

std::string questionOfChangedLines(settings::Program& program) {
    const auto& options = program.get<settings::frmOptions>();
    const std::array gates{&options.chkActivateOwnFolder, &options.chkActivateOwnFiles, &options.chkSearchTasks};
    std::vector<settings::SplitLine> lines = settings::splitLinesOfLists(program);
    std::erase_if(lines, [&](const settings::SplitLine& line) {
        const auto file = std::find(settings::kListFiles.begin(), settings::kListFiles.end(), line.file);
        return !gates.at(static_cast<std::size_t>(file - settings::kListFiles.begin()))->ticked();
    });
    return lines.empty()
               ? std::string()
               : tellSplitLines(program, lines) + kLineEnd + sentence(program, Sentence::CleanWithTheseEntries);
}

std::string warningOfIdleEntry(settings::Program& program, OwnList list, const std::string& text) {
    if (list == OwnList::Masks) {
        if (!canMatchNothing(text)) return {};
        return sentence(program, Sentence::IdleMask, {text});
    }
    const bool files = list == OwnList::Files;
    if (!files && base::isAbsolutePath(text)) (void)program.platform.files.mayEmpty(text);
    if (base::isAbsolutePath(text) || (files && registry::namesRegistryKey(text))) return {};
    return files ? sentence(program, Sentence::IdleFile, {text, "HKEY_CURRENT_USER"})
                 : sentence(program, Sentence::IdleFolder, {text});
}

bool agrees(forms::Display& display, const std::string& question) {
    const int style = forms::msgbox::YesNo + forms::msgbox::Question + forms::msgbox::DefaultButton2;
    return question.empty() || display.MsgBox(question, style, kTitle) == forms::msgbox::Yes;
}

bool allowsRun(settings::Program& program) {
    if (const std::string refusal = whyNotToRun(program, FrontEnd::Windows); !refusal.empty()) {
        (void)program.MsgBox(refusal, forms::msgbox::Exclamation, kTitle);
        return false;
    }
    const int style = forms::msgbox::YesNo + forms::msgbox::Question + forms::msgbox::DefaultButton2;
    for (const std::string& question : {questionOfMasks(program), questionOfChangedLines(program)}) {
        if (!question.empty() && program.MsgBox(question, style, kTitle) != forms::msgbox::Yes) return false;
    }
    return true;
}

}  // namespace tidvane::frontend
