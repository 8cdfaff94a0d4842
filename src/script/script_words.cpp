#include "script/script_words.h"

#include <algorithm>
#include <cmath>

#include "base/message.h"
#include "base/number_parse.h"
#include "base/text.h"

namespace zaview {

namespace {

constexpr std::string_view kBlanks = " \t";
constexpr int kScriptReals = 1024;  // numbers of one list

// Moves to the first column of the next word on this line; false if there is none.
bool FindWord(WordScanner& scanner) {
  scanner.position = std::min(scanner.line.find_first_not_of(kBlanks, scanner.position), scanner.line.size());
  return scanner.position < TrimEnd(scanner.line).size();
}

bool NextLine(WordScanner& scanner) {
  if (scanner.next_line == nullptr || *scanner.next_line >= scanner.lines.size()) return false;
  scanner.line = scanner.lines[(*scanner.next_line)++].text;
  scanner.position = 0;
  return true;
}

bool FindWordOverLines(WordScanner& scanner) {
  while (!FindWord(scanner))
    if (!NextLine(scanner)) return false;
  return true;
}

std::size_t LinesUsed(const WordScanner& scanner) {
  return scanner.next_line == nullptr ? 0 : *scanner.next_line;
}

bool IsQuote(char c) {
  return c == '"' || c == '\'';
}

std::string_view TakeQuoted(WordScanner& scanner) {
  const char quote = scanner.line[scanner.position];
  const std::size_t begin = scanner.position + 1;
  const std::size_t end = scanner.line.find(quote, begin);
  if (end != std::string_view::npos) {
    scanner.position = end + 1;
    return scanner.line.substr(begin, end - begin);
  }
  SayLine(*scanner.console, "WARNING - missing closing quote");
  scanner.position = scanner.line.size();
  return TrimEnd(scanner.line.substr(begin));
}

std::string_view TakePlain(WordScanner& scanner) {
  const std::size_t begin = scanner.position;
  scanner.position = std::min(scanner.line.find_first_of(kBlanks, begin), scanner.line.size());
  return TrimEnd(scanner.line.substr(begin, scanner.position - begin));
}

// A sign may stand ahead of the number and of an exponent with its letter: 1-2 is no number, neither is NaN.
bool ParseScriptReal(std::string_view word, float& value) {
  for (std::size_t i = 0; i < word.size(); ++i) {
    const bool sign = word[i] == '+' || word[i] == '-';
    if (sign && i > 0 && std::string_view("eEdD").find(word[i - 1]) == std::string_view::npos) return false;
  }
  return ParseFloat(word, value) && std::isfinite(value);
}

}  // namespace

bool NextLoopWord(WordScanner& scanner, std::size_t limit, std::string& word) {
  if (!FindWordOverLines(scanner)) return false;
  word = (IsQuote(scanner.line[scanner.position]) ? TakeQuoted(scanner) : TakePlain(scanner)).substr(0, limit);
  return true;
}

std::string NextScriptWord(WordScanner& scanner, std::size_t limit) {
  const std::size_t before = LinesUsed(scanner);
  std::string word;
  if (!FindWordOverLines(scanner)) return word;
  const bool further = LinesUsed(scanner) != before && !IsQuote(scanner.line[scanner.position]);
  (void)NextLoopWord(scanner, limit, word);
  if (further && limit == kFreeText) scanner.carried = word;
  return word;
}

std::string PeekScriptWord(const WordScanner& scanner, std::size_t limit) {
  WordScanner ahead = scanner;
  std::size_t next_line = LinesUsed(scanner);
  if (scanner.next_line != nullptr) ahead.next_line = &next_line;
  return NextScriptWord(ahead, limit);
}

std::string_view RestOfLine(const WordScanner& scanner) {
  return Trim(scanner.line.substr(scanner.position));
}

bool ParseRealList(WordScanner& scanner, int n, std::vector<float>& values) {
  values.clear();
  const auto wanted = static_cast<std::size_t>(std::min(std::abs(n), kScriptReals));
  while (values.size() < wanted) {
    if (n < 0 && !FindWord(scanner)) return true;
    if (!FindWordOverLines(scanner)) return false;
    float value = 0;
    if (!ParseScriptReal(TakePlain(scanner), value)) return false;
    values.push_back(value);
  }
  return true;
}

int StepCount(float value) {
  constexpr double kLargest = 2147483647.0;
  return static_cast<int>(std::clamp(std::floor(static_cast<double>(value) + 0.5), -kLargest, kLargest));
}

}  // namespace zaview
