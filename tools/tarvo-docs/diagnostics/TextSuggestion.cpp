#include "TextSuggestion.h"

#include <algorithm>
#include <cctype>

namespace tarvo_diagnostics {

std::size_t TextSuggestion::distance(std::string const& a, std::string const& b) {
  auto lower = [](char c) { return static_cast<char>(std::tolower(static_cast<unsigned char>(c))); };
  std::vector<std::size_t> row(b.size() + 1);
  for (std::size_t j = 0; j <= b.size(); ++j)
    row[j] = j;
  for (std::size_t i = 1; i <= a.size(); ++i) {
    std::size_t diagonal = row[0];
    row[0] = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      std::size_t const above = row[j];
      std::size_t const substitute = diagonal + (lower(a[i - 1]) == lower(b[j - 1]) ? 0 : 1);
      row[j] = std::min({above + 1, row[j - 1] + 1, substitute});
      diagonal = above;
    }
  }
  return row[b.size()] + (row[b.size()] == 0 && a != b ? 1 : 0);
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
  return std::max<std::size_t>(2, text.size() / 3);
}

}  // namespace tarvo_diagnostics
