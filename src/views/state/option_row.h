// Items of the option menus: a row each with what it shows and what it sets. Every view has a table of them beside that
// of its keys; the menus are built from these tables, and an event finds its item there (views/menus).
#pragma once

#include <cmath>
#include <cstdint>
#include <limits>
#include <span>
#include <string>
#include <string_view>

#include "frame/session.h"
#include "menu/menu_toolkit.h"
#include "views/state/view_key.h"

namespace zaview {

enum class OptionKind : std::uint8_t {
  row,        // begins a row of what follows it, with its label
  separator,  // a line across the menu
  text,       // lines
  tab,        // what follows it stands at a column
  label,
  button,
  check,    // its label stands behind it, as that of radio
  radio,    // one of several
  integer,  // type-ins; their label stands ahead
  real,
  word,
  colour,    // chip: opens the list of colours, which then sets it
  quantity,  // button with a quantity's name: opens the list of quantities, which then sets it
  point,     // button: opens the point menu
  file,      // button that opens the file selector
  element    // built by itself: run bar, list
};

struct OptionValue {  // what an item shows
  int integer = 0;    // on or off; colour; quantity; of an integer, as of a file its mode (1 to write, 2 to read)
  float real = 0;
  std::string text{};     // of a word, a file; of a label or button in place of its own, if not blank
  bool disabled = false;  // greyed, not to be pressed
};

struct OptionEvent {
  MenuChange change = MenuChange::button;
  int integer = 0;
  float real = 0;
  std::string text{};
  int index = 1;  // of a block that is there several times: which one
  int item = 0;   // of an element: its part
};

// May make what is out of date, such as limits that are to be fitted.
using OptionShows = OptionValue (*)(Session& session, int index);
// What is said of a value that is refused, which changes nothing; blank: it is taken. The picture is drawn again then.
using OptionSets = std::string_view (*)(Session& session, const OptionEvent& event);
using OptionStands = bool (*)(const Session& session, int index);

struct OptionBinding {
  OptionShows shows = nullptr;
  OptionSets sets = nullptr;
};

struct OptionItem {
  OptionKind kind = OptionKind::row;
  std::string_view text{};
  OptionBinding value{};
  KeyScope scope = kAlways;       // of the view as it stands (ViewOptions); of a row: for all that stands in it
  OptionStands stands = nullptr;  // beside the scope; null: always
  int width = 0;                  // columns; of a type-in 0: integer 6, real 10
  float step = 0;                 // of the arrows of a type-in; below 0: it has none, 0: by its value
  float low = -std::numeric_limits<float>::infinity(), high = std::numeric_limits<float>::infinity();  // both allowed
  void (*build)(MenuToolkit& kit, Session& session) = nullptr;  // of an element: adds just one to the menu
};

inline constexpr float kNoArrows = -1;
inline constexpr std::string_view kIllegalIgnored = "ILLEGAL value ignored";

struct OptionBlock {  // rows; several times: index 1 to `times`
  std::span<const OptionItem> items;
  int times = 1;
};

struct ViewOptions {  // of one view as it stands
  std::span<const OptionBlock> blocks;
  KeyScope scope = kAlways;  // items that share no bit with it don't stand there
};

// ---- Items, for tables
[[nodiscard]] constexpr OptionItem Row(std::string_view label = {}, KeyScope scope = kAlways,
                                       OptionStands stands = nullptr) {
  return {.kind = OptionKind::row, .text = label, .scope = scope, .stands = stands};
}
[[nodiscard]] constexpr OptionItem Separator(KeyScope scope = kAlways) {
  return {.kind = OptionKind::separator, .scope = scope};
}
[[nodiscard]] constexpr OptionItem Tab(int column) {
  return {.kind = OptionKind::tab, .width = column};
}
[[nodiscard]] constexpr OptionItem Label(std::string_view text, OptionShows shows = nullptr) {
  return {.kind = OptionKind::label, .text = text, .value = {shows, nullptr}};
}
[[nodiscard]] constexpr OptionItem Button(std::string_view text, OptionSets press, OptionShows shows = nullptr) {
  return {.kind = OptionKind::button, .text = text, .value = {shows, press}};  // shows: integer 1, held down
}
[[nodiscard]] constexpr OptionItem Check(std::string_view text, OptionBinding value) {
  return {.kind = OptionKind::check, .text = text, .value = value};
}
[[nodiscard]] constexpr OptionItem Radio(std::string_view text, OptionBinding value) {
  return {.kind = OptionKind::radio, .text = text, .value = value};
}
struct OptionRange {
  float low = -std::numeric_limits<float>::infinity(), high = std::numeric_limits<float>::infinity();
};
[[nodiscard]] constexpr OptionItem Integer(std::string_view text, OptionBinding value, OptionRange range,
                                           float step = 0) {
  return {
      .kind = OptionKind::integer, .text = text, .value = value, .step = step, .low = range.low, .high = range.high};
}
[[nodiscard]] constexpr OptionItem Real(std::string_view text, OptionBinding value, OptionRange range = {},
                                        float step = 0) {
  return {.kind = OptionKind::real, .text = text, .value = value, .step = step, .low = range.low, .high = range.high};
}
// For one view as it stands, or one state of the case.
[[nodiscard]] constexpr OptionItem In(KeyScope scope, OptionItem item) {
  item.scope = scope;
  return item;
}
[[nodiscard]] constexpr OptionItem If(OptionStands stands, OptionItem item) {
  item.stands = stands;
  return item;
}

// ---- Bindings of a field, told by its path from the session: Flag<&Session::data_plot, &DataPlotState::grid_on>
template <auto first, auto... rest>
[[nodiscard]] auto& FieldOf(auto& record) {
  auto& field = record.*first;
  if constexpr (sizeof...(rest) == 0) return field;
  else return FieldOf<rest...>(field);
}

template <auto... path>
inline constexpr OptionBinding Flag = {
    [](Session& s, int) { return OptionValue{.integer = FieldOf<path...>(s) ? 1 : 0}; },
    [](Session& s, const OptionEvent& event) {
      FieldOf<path...>(s) = event.integer != 0;
      return std::string_view();
    }};

// Of a radio button: it is on where the field has this value.
template <auto value, auto... path>
inline constexpr OptionBinding Choice = {
    [](Session& s, int) { return OptionValue{.integer = FieldOf<path...>(s) == value ? 1 : 0}; },
    [](Session& s, const OptionEvent&) {
      FieldOf<path...>(s) = value;
      return std::string_view();
    }};

// Of a type-in of a number, or a colour; the item tells the range.
template <auto... path>
inline constexpr OptionBinding Number = {[](Session& s, int) {
                                           const auto value = FieldOf<path...>(s);
                                           return OptionValue{.integer = static_cast<int>(value),
                                                              .real = static_cast<float>(value)};
                                         },
                                         [](Session& s, const OptionEvent& event) {
                                           auto& field = FieldOf<path...>(s);
                                           using Type = std::remove_reference_t<decltype(field)>;
                                           if constexpr (std::is_integral_v<Type>)
                                             field = static_cast<Type>(event.integer);
                                           else field = static_cast<Type>(event.real);
                                           return std::string_view();
                                         }};

}  // namespace zaview
