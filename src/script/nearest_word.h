// What somebody meant who mistyped a word.
#pragma once

#include <cstddef>
#include <string_view>

namespace zaview {

// How many letters have to be changed, left out, put in, or exchanged with their neighbour, to come from one word to
// the other (the restricted distance of F. J. Damerau, Comm. ACM 7 (1964)).
[[nodiscard]] std::size_t WordDistance(std::string_view a, std::string_view b);

// The nearest of the words that are offered: at most a third of the letters and three of them may differ.
struct NearestWord {
  std::string_view word;  // in capitals
  std::string_view nearest{};
  std::size_t distance = 4;

  void Offer(std::string_view candidate);
};

}  // namespace zaview
