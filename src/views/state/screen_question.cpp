#include "views/state/screen_question.h"

#include "gks/window/text_screen.h"

namespace zaview {

void AskOnScreen(Session& session, std::initializer_list<std::string_view> lines, ScreenMode mode,
                 std::string_view prompt, std::string_view fallback) {
  int number = 0;
  for (const std::string_view line : lines) gksScreenLine(session.gks, line, number++);
  gksScreenPrompt(session.platform, session.gks, mode, prompt, fallback);
}

void EndQuestion(Session& session) {
  PlotSessionState& p = session.plot_session;
  p.screen_io_option = kNoQuestion;
  p.screen_io_step = kFirstAnswer;
  session.run.redraw = true;
}

}  // namespace zaview
