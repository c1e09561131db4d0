#include "TextSuggestion.h"

#include <algorithm>
#include <cctype>

namespace tarvo_diagnostics {

std::size_t TextSuggestion::distance(std::string const& a, std::string const& b) {
  auto same = [](char x, char y) {
    return std::tolower(static_cast<unsigned char>(x)) == std::tolower(static_cast<unsigned char>(y));
  };
  // Three rows of the table: two back (for swaps), the previous one and the current one.
  std::vector<std::size_t> before(b.size() + 1);
  std::vector<std::size_t> previous(b.size() + 1);
  std::vector<std::size_t> row(b.size() + 1);
  for (std::size_t j = 0; j <= b.size(); ++j)
    previous[j] = j;
  for (std::size_t i = 1; i <= a.size(); ++i) {
    row[0] = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      row[j] = std::min({previous[j] + 1, row[j - 1] + 1, previous[j - 1] + (same(a[i - 1], b[j - 1]) ? 0 : 1)});
      if (i > 1 && j > 1 && same(a[i - 1], b[j - 2]) && same(a[i - 2], b[j - 1]))
        row[j] = std::min(row[j], before[j - 2] + 1);
    }
    std::swap(before, previous);
    std::swap(previous, row);
  }
  std::size_t const d = previous[b.size()];
  return d + (d == 0 && a != b ? 1 : 0);
}

std::string TextSuggestion::closest(std::string const& text, std::vector<std::string> const& candidates,
                                    std::size_t maxDistance) {
  std::string best;
  std::size_t bestDistance = maxDistance + 1;
  for (std::string const& candidate : candidates) {
    std::size_t const d = distance(text, candidate);
    if (d < bestDistance) {
      best = candidate;
      bestDistance = d;
    }
  }
  return best;
}

std::size_t TextSuggestion::nameTolerance(std::string const& text) {
  return std::max<std::size_t>(1, text.size() / 4);
}

}  // namespace tarvo_diagnostics
