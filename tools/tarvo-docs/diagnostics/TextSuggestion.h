#ifndef TARVO_DOCS_TEXTSUGGESTION_H
#define TARVO_DOCS_TEXTSUGGESTION_H

#include <cstddef>
#include <string>
#include <vector>

namespace tarvo_diagnostics {

// The "did you mean" of a diagnostic: the known text closest to what was written.
class TextSuggestion {
 public:
  // Edit distance (insertions, deletions, substitutions, swaps of neighbours) with letters
  // compared regardless of case, plus one when the two texts differ only in case, so that an
  // exact match wins.
  static std::size_t distance(std::string const& a, std::string const& b);
  // The candidate nearest to `text` (the first of equals), or "" when none lies within
  // `maxDistance`.
  static std::string closest(std::string const& text, std::vector<std::string> const& candidates,
                             std::size_t maxDistance);
  // A bound for names: a quarter of the text's length, at least 1.
  static std::size_t nameTolerance(std::string const& text);
};

}  // namespace tarvo_diagnostics

#endif
