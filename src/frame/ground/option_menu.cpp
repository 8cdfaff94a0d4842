#include "frame/ground/option_menu.h"

#include <string>
#include <vector>

#include "base/message.h"
#include "base/number_parse.h"
#include "base/text.h"

namespace zaview {

namespace {

constexpr std::string_view kOutOfRange = "Selection out of range - please reenter";
constexpr std::string_view kInvalid = "Invalid option - please reenter";
constexpr std::size_t kTwoColumnsFrom = 5;  // items
constexpr int kColumn = 55;                 // characters

void ShowItems(const Console& console, std::string_view title, std::span<const MenuItem> items) {
  if (!IsBlank(title)) {
    SayLine(console, "");
    SayLine(console, title);
  }
  std::vector<std::string_view> texts;
  for (const MenuItem& item : items)
    if (item.available) texts.push_back(item.text);
  const std::size_t columns = texts.size() < kTwoColumnsFrom ? 1 : 2;
  for (std::size_t i = 0; i < texts.size(); i += columns) {
    if (columns == 2 && i + 1 < texts.size()) Say(console, "{:<{}}{}", texts[i], kColumn, texts[i + 1]);
    else SayLine(console, texts[i]);
  }
}

enum class Choice : std::uint8_t { taken, out_of_range, invalid };

Choice TakeNumber(std::string_view answer, std::span<const MenuItem> items, int& value) {
  std::size_t position = 0;
  double number = 0;
  if (parse_real(answer, position, number) == ParseEnd::none) return Choice::invalid;
  const int choice = RoundToInt(number);
  if (choice < 0 || (choice > 0 && static_cast<std::size_t>(choice) >= items.size())) return Choice::out_of_range;
  if (choice > 0 && !items[static_cast<std::size_t>(choice)].available) return Choice::invalid;
  value = choice;
  return Choice::taken;
}

}  // namespace

Answer select_option(const Console& console, std::string_view title, std::string_view prompt,
                     std::span<const MenuItem> items, int fallback, int& value) {
  ShowItems(console, title, items);
  const std::string shown = fallback < 0 ? "" : fmt::format("{}", fallback);
  for (;;) {
    std::string answer;
    const Answer status = ReadAnswer(console, prompt, shown, answer);
    if (status != Answer::ok) return status;
    if (StartsWith(answer, "q") || StartsWith(answer, "Q")) return Answer::quit;
    if (fallback >= 0 && IsBlank(answer)) {
      value = fallback;
      return Answer::ok;
    }
    const Choice choice = TakeNumber(answer, items, value);
    if (choice == Choice::taken) return Answer::ok;
    SayLine(console, choice == Choice::out_of_range ? kOutOfRange : kInvalid);
  }
}

}  // namespace zaview
