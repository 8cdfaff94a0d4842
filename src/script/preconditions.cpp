#include "script/preconditions.h"

#include <string_view>

#include "case/case_hull.h"

namespace zaview {

namespace {

bool StepsRead(Session& session) {
  return session.case_store.has_case && session.case_store.last_step > 0;
}
bool CaseRead(Session& session) {  // impulse response functions are a case without steps
  return StepsRead(session) || session.case_store.has_data();
}
bool RecordsHeld(Session& session) {
  return session.ensemble.nrec > 0;
}
bool IsMotionCase(Session& session) {
  return session.case_store.time_history();
}
bool IsImpulsiveCase(Session& session) {
  return !session.case_store.time_history();
}
bool GraphicsAvailable(Session& session) {
  return session.platform.choose_window != nullptr;
}
bool GeometryRead(Session& session) {
  return EnsureHull(session.platform, session.case_store);
}

struct Precondition {
  Needs need;
  bool (*met)(Session& session);
  std::string_view colon;  // behind the command; left out where kShortWords is asked for
  std::string_view text;
  std::string_view second;  // a line of its own, may be blank
  std::string_view in_words;
};

constexpr Precondition kPreconditions[] = {
    {kNeedsCase, CaseRead, " :", "cannot be run until an output", "   file has been read", "a run read"},
    {kNeedsEnsemble, RecordsHeld, " :", "cannot be run until one or more", "   output files have been read",
     "an ensemble"},
    {kNeedsMotion, IsMotionCase, "", "not valid for impulsive motion and IRF calculations", "",
     "no impulsive or IRF run"},
    {kNeedsImpulsive, IsImpulsiveCase, "", "valid for impulsive motion and IRF calculations only", "",
     "an impulsive or IRF run"},
    {kNeedsGraphics, GraphicsAvailable, " :", "cannot be run as graphics are not available", "", "graphics"},
    {kNeedsGeometry, GeometryRead, " :", "cannot be run as geometry could not be read", "", "a hull"},
};

}  // namespace

bool PreconditionsMet(const ScriptCall& call, Needs needs) {
  for (const Precondition& test : kPreconditions) {
    if ((needs & test.need) == 0 || test.met(call.session)) continue;
    const std::string_view colon = (needs & kShortWords) != 0 ? "" : test.colon;
    Say(call.console(), "ERROR - {}{} {}", call.command, colon, test.text);
    if (!test.second.empty()) SayLine(call.console(), test.second);
    return false;
  }
  return true;
}

std::string NeedsInWords(Needs needs) {
  std::string words;
  for (const Precondition& test : kPreconditions)
    if ((needs & test.need) != 0) words.append(words.empty() ? "" : ", ").append(test.in_words);
  return words;
}

}  // namespace zaview
