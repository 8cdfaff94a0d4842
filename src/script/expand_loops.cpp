#include "script/expand_loops.h"

#include <algorithm>
#include <cstdint>

#include <fmt/format.h>

#include "base/grow.h"
#include "base/text.h"
#include "script/script_words.h"

namespace zaview {

namespace {

constexpr std::string_view kNameFault = "ERROR parsing script variable loop:  {}";
constexpr std::string_view kSeparatorFault = "ERROR parsing script variable {} misplaced separator |";
constexpr std::string_view kListFault = "ERROR parsing script variable loop for variable {} : {}";
constexpr std::string_view kSequenceFault = "ERROR parsing SEQ specifier in script DO loop";
constexpr std::string_view kNoDone = "ERROR parsing script variable loop : token DONE not found";
constexpr std::string_view kTooDeep = "ERROR - script loops are nested deeper than {} levels";

constexpr std::int64_t kLargestPlain = 9'999'999;  // a number of a sequence without padding has up to 7 digits

struct LoopHeader {
  std::string name;         // as written
  std::string variable[2];  // the second may be blank: one variable
  std::vector<std::string> values;
};

struct LoopRound {
  const Console& console;
  ScriptText& in;
  std::size_t next_line = 0;
  ScriptText out;
  bool again = false;  // a loop stood within a loop
  std::string fault;
};

std::string FirstWord(std::string_view line) {
  const std::string_view text = TrimStart(line);
  return Capitals(TrimEnd(text.substr(0, text.find_first_of(" \t"))));
}

bool Fails(LoopRound& round, std::string text) {
  round.fault = std::move(text);
  return false;
}

bool SplitName(LoopRound& round, LoopHeader& header) {
  const std::size_t bar = header.name.find('|');
  if (bar == std::string::npos) {
    header.variable[0] = header.name;
    return true;
  }
  if (bar == 0 || bar + 1 == header.name.size()) return Fails(round, fmt::format(kSeparatorFault, header.name));
  header.variable[0] = header.name.substr(0, bar);
  header.variable[1] = header.name.substr(bar + 1);
  return true;
}

// The first integer in a word: its value, which must not be negative.
bool FirstInteger(std::string_view word, std::int64_t& value) {
  constexpr std::int64_t kLargest = 1'000'000'000'000;  // beyond it a bad number
  const std::size_t first = word.find_first_of("0123456789");
  if (first == std::string_view::npos || (first > 0 && word[first - 1] == '-')) return false;
  value = 0;
  for (std::size_t i = first; i < word.size() && word[i] >= '0' && word[i] <= '9'; ++i) {
    value = 10 * value + (word[i] - '0');
    if (value > kLargest) return false;
  }
  return true;
}

bool AddValue(LoopRound& round, LoopHeader& header, std::string value) {
  if (header.values.size() >= kScriptLines) return Fails(round, TooLongMessage());
  if (header.values.size() == header.values.capacity() && !Reserve(header.values, 2 * header.values.size() + 16))
    return Fails(round, TooLongMessage());
  header.values.push_back(std::move(value));
  return true;
}

// SEQ first last: both ends included, upwards or downwards; words of one length give numbers of that length.
bool AddSequence(LoopRound& round, WordScanner& scanner, LoopHeader& header) {
  std::string words[2];
  std::int64_t ends[2] = {};
  for (int i = 0; i < 2; ++i)
    if (!NextLoopWord(scanner, kScriptWord, words[i]) || !FirstInteger(words[i], ends[i]))
      return Fails(round, std::string(kSequenceFault));
  const std::size_t digits = words[0].size() == words[1].size() ? words[0].size() : 0;
  if (digits == 0 && std::max(ends[0], ends[1]) > kLargestPlain) return Fails(round, std::string(kSequenceFault));
  const std::int64_t step = ends[1] < ends[0] ? -1 : 1;
  for (std::int64_t value = ends[0]; value != ends[1] + step; value += step)
    if (!AddValue(round, header, fmt::format("{:0{}}", value, digits))) return false;
  return true;
}

// Up to the word DO, quoted or not; what stands behind it on its line is dropped.
bool ReadValues(LoopRound& round, WordScanner& scanner, LoopHeader& header) {
  std::string word;
  while (NextLoopWord(scanner, kScriptWord, word)) {
    const std::string capitals = Capitals(word);
    if (capitals == "DO") return true;
    const bool good =
        capitals == "SEQ" ? AddSequence(round, scanner, header) : AddValue(round, header, std::move(word));
    if (!good) return false;
  }
  return Fails(round, fmt::format(kListFault, header.name, "token DO not found"));
}

bool ReadHeader(LoopRound& round, std::string_view line, LoopHeader& header) {
  WordScanner scanner{&round.console, round.in.lines, &round.next_line, line, line.find_first_not_of(" \t") + 3};
  if (!NextLoopWord(scanner, kScriptWord, header.name))
    return Fails(round, fmt::format(kNameFault, "EOF while parsing variable name"));
  if (header.name.empty()) return Fails(round, fmt::format(kNameFault, "variable name cannot be null string"));
  if (IsBlank(header.name)) return Fails(round, fmt::format(kNameFault, "variable name cannot be blank string"));
  if (!SplitName(round, header)) return false;
  std::string word;
  if (!NextLoopWord(scanner, kScriptWord, word) || (Capitals(word) != "IN" && word != "="))
    return Fails(round, fmt::format(kListFault, header.name, "token IN not found"));
  return ReadValues(round, scanner, header);
}

// Moves next_line behind the DONE that belongs to this loop; the body is what stands before it.
bool FindDone(LoopRound& round, std::size_t& body_end) {
  int depth = 1;
  for (; round.next_line < round.in.lines.size(); ++round.next_line) {
    const std::string word = FirstWord(round.in.lines[round.next_line].text);
    if (word == "FOR") {
      if (++depth > kLoopDepth) return Fails(round, fmt::format(kTooDeep, kLoopDepth));
      round.again = true;
    }
    if (word == "DONE" && --depth == 0) {
      body_end = round.next_line++;
      return true;
    }
  }
  return Fails(round, std::string(kNoDone));
}

bool AddAssignment(LoopRound& round, ScriptOrigin origin, std::string_view name, std::string_view value) {
  return AddScriptLine(round.out, {fmt::format("{}=\"{}\"", name, value).substr(0, kScriptLine), origin});
}

// One value: its assignments, then the body. A value without `|` goes to both variables.
bool WriteValue(LoopRound& round, const LoopHeader& header, std::string_view value, ScriptOrigin origin,
                std::span<const ScriptLine> body) {
  std::string_view second = value;
  const std::size_t bar = value.find('|');
  const bool two = !header.variable[1].empty();
  if (two && bar != std::string_view::npos) {
    second = value.substr(bar + 1);
    value = value.substr(0, bar);
  }
  if (!AddAssignment(round, origin, header.variable[0], value)) return false;
  if (two && !AddAssignment(round, origin, header.variable[1], second)) return false;
  for (const ScriptLine& line : body)
    if (!AddScriptLine(round.out, ScriptLine(line))) return false;
  return true;
}

bool ExpandLoop(LoopRound& round, const ScriptLine& line) {
  LoopHeader header;
  if (!ReadHeader(round, line.text, header)) return false;
  const std::size_t body_begin = round.next_line;
  std::size_t body_end = body_begin;
  if (!FindDone(round, body_end)) return false;
  if (header.values.empty()) return Fails(round, fmt::format(kListFault, header.name, "no values found"));
  const std::span<const ScriptLine> body =
      std::span<const ScriptLine>(round.in.lines).subspan(body_begin, body_end - body_begin);
  for (const std::string& value : header.values)
    if (!WriteValue(round, header, value, line.origin, body)) return Fails(round, TooLongMessage());
  return true;
}

bool ExpandRound(LoopRound& round, PassMessage& message) {
  while (round.next_line < round.in.lines.size()) {
    ScriptLine& line = round.in.lines[round.next_line++];
    const std::string word = FirstWord(line.text);
    bool good = true;
    if (word == "FOR") good = ExpandLoop(round, line);
    else if (word == "DONE") good = Fails(round, "ERROR parsing script variable loop for variable : no values found");
    else good = AddScriptLine(round.out, std::move(line)) || Fails(round, TooLongMessage());
    if (good) continue;
    message = {round.fault, "", line.origin, line.text};
    return false;
  }
  return true;
}

}  // namespace

bool ExpandScriptLoops(const Console& console, ScriptText& text, PassMessage& message) {
  for (int i = 0; i <= kLoopDepth; ++i) {  // each round takes one level off
    LoopRound round{console, text, 0, {}, false, {}};
    if (!ExpandRound(round, message)) return false;
    text = std::move(round.out);
    if (!round.again) return true;
  }
  message.first = fmt::format(kTooDeep, kLoopDepth);
  return false;
}

}  // namespace zaview
