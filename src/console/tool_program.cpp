#include "console/tool_program.h"

#include "app/all_windows.h"
#include "console/stored_windows.h"
#include "frontend/guards.h"
#include "frontend/own_services.h"
#include "settings/sentences.h"

namespace tidvane::console {

ToolProgram::ToolProgram(Session& session, const Options& options)
    : ToolProgram(session, options, session.platform.events) {}

ToolProgram::ToolProgram(Session& session, const Options& options, platform::EventPump& events)
    : session_(session),
      unsaved_(session.platform.profiles),
      noPauses_(session.platform.clock),
      display_(session.err, options.answerYes, options.preview),
      program_(frontend::withOwn(
                   session.platform,
                   {.profiles = &unsaved_, .clock = options.preview ? &noPauses_ : nullptr, .events = &events}),
               display_) {
    session_.warn = [this](const std::string& line) { display_.warn(settings::inLanguageOf(program_, line)); };
    app::offerWindowsWithoutMain(program_);
    loadLanguages(program_);
    frontend::warnOfMissingTexts(program_, display_);
}

ToolProgram::~ToolProgram() {
    session_.warn = nullptr;
}

}  // namespace tidvane::console
