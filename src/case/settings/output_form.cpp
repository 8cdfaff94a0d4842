#include "case/settings/output_form.h"

namespace zaview {
namespace {

struct ConventionWord {
  std::string_view word;
  Convention convention;
  bool in_dialogue;
};
constexpr ConventionWord kConventionWords[] = {
    {"DEF", Convention::zavo, false}, {"DEFAULT", Convention::zavo, false}, {"ZUP", Convention::zavo, true},
    {"ZAVO", Convention::zavo, true}, {"MODEL", Convention::model, true},   {"ZDOWN", Convention::model, true},
    {"CFD", Convention::cfd, true},   {"XAFT", Convention::cfd, true},      {"XDOWN", Convention::cfd, false},
};
constexpr std::size_t kLetters = 3;

struct SeparatorWord {
  std::string_view word, plural;
  Separator separator;
};
constexpr SeparatorWord kSeparators[] = {
    {"COMMA", "COMMAS", Separator::comma}, {"TAB", "TABS", Separator::tab}, {"SPACE", "SPACES", Separator::space}};

}  // namespace

SettingFault SetScale(std::size_t i, float value, const CaseStore& case_store, OutputUnits& units) {
  if (!(value > 0.0F)) return SettingFault::illegal;
  units.*kScaleNames[i].factor = value;
  units.user_scale[i] = true;
  set_output_scales(units, !case_store.time_history());
  return SettingFault::none;
}

const ConventionRow* SetConvention(std::string_view word, WordForm form, OutputUnits& units) {
  for (const ConventionWord& known : kConventionWords) {
    const bool fits = form == WordForm::whole
                          ? word == known.word
                          : known.in_dialogue && word.substr(0, kLetters) == known.word.substr(0, kLetters);
    if (!fits) continue;
    for (const ConventionRow& row : kConventions) {
      if (row.convention != known.convention) continue;
      units.cnvfac = row.factors;
      return &row;
    }
  }
  return nullptr;
}

SettingFault SetSeparator(std::string_view word, WritingSettings& writing) {
  for (const SeparatorWord& row : kSeparators) {
    if (word != row.word && word != row.plural) continue;
    writing.separator = row.separator;
    return SettingFault::none;
  }
  return SettingFault::illegal;
}

}  // namespace zaview
