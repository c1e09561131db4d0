#ifndef TARVO_ASCIICASE_H
#define TARVO_ASCIICASE_H

// Case rules of the constraint names and keys (not exported). Names and keys are ASCII, so
// only the letters A to Z fold: byte for byte what the classic locale does, without asking
// a locale for every character, which the reader does for every key of a document.

#include <cstddef>
#include <string>

namespace kpe {
namespace constraints {

class AsciiCase {
 public:
  static char upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - ('a' - 'A')) : c; }
  static char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; }

  static bool equals(std::string const& a, char const* b, std::size_t bSize) {
    if (a.size() != bSize) return false;
    for (std::size_t i = 0; i < bSize; ++i)
      if (upper(a[i]) != upper(b[i])) return false;
    return true;
  }
  static bool equals(std::string const& a, std::string const& b) { return equals(a, b.data(), b.size()); }
  static bool startsWith(std::string const& text, std::string const& prefix) {
    return text.size() >= prefix.size() && equals(prefix, text.data(), prefix.size());
  }
  static void toUpper(std::string& text) {
    for (char& c : text)
      c = upper(c);
  }
  static std::string toLowerCopy(std::string text) {
    for (char& c : text)
      c = lower(c);
    return text;
  }
};

}  // namespace constraints
}  // namespace kpe

#endif
