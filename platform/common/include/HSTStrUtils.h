#ifndef TARVO_HSTSTRUTILS_H
#define TARVO_HSTSTRUTILS_H

#include <string>
#include <vector>

// Small string helpers of the common services.
class HSTStrUtils {
 public:
  // The first occurrence of `part` in `text`, or null when there is none (or either is null).
  static char const* contains(char const* text, char const* part);
  static bool contains(std::string const& text, std::string const& part);

  // Splits at every `separator`; an empty text gives one empty piece.
  static std::vector<std::string> split(std::string const& text, char separator);
  static std::string join(std::vector<std::string> const& pieces, std::string const& separator);
  // Removes leading and trailing blanks, tabs, carriage returns and newlines.
  static std::string trim(std::string const& text);
};

#endif
