#include "script/nearest_word.h"

#include <algorithm>
#include <numeric>
#include <vector>

namespace zaview {

std::size_t WordDistance(std::string_view a, std::string_view b) {
  std::vector<std::size_t> before, last(b.size() + 1), row(b.size() + 1);
  std::iota(last.begin(), last.end(), 0);
  for (std::size_t i = 1; i <= a.size(); ++i) {
    row[0] = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const std::size_t change = last[j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1);
      row[j] = std::min({change, last[j] + 1, row[j - 1] + 1});
      const bool exchanged = i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1];
      if (exchanged) row[j] = std::min(row[j], before[j - 2] + 1);
    }
    before = last;
    last = row;
  }
  return last[b.size()];
}

void NearestWord::Offer(std::string_view candidate) {
  const std::size_t apart = WordDistance(word, candidate);
  if (candidate.empty() || apart >= distance || 3 * apart > word.size()) return;
  nearest = candidate;
  distance = apart;
}

}  // namespace zaview
