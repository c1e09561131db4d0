#ifndef HSTSTRUTILS_H
#define HSTSTRUTILS_H

#include <cstdint>
#include <string>
#include <vector>

// Small string helpers of the common services.
class HSTStrUtils {
 public:
  // The first occurrence of `part` in `text`, or null when there is none (or either is null).
  static char const* contains(char const* text, char const* part);
  static bool contains(std::string const& text, std::string const& part);

  static bool startsWith(std::string const& text, std::string const& prefix);
  static bool endsWith(std::string const& text, std::string const& suffix);
  // Splits at every `separator`; an empty text gives one empty piece.
  static std::vector<std::string> split(std::string const& text, char separator);
  static std::string join(std::vector<std::string> const& pieces, std::string const& separator);
  // Removes leading and trailing blanks, tabs, carriage returns and newlines.
  static std::string trim(std::string const& text);

  // For scans eight bytes at a time: bit 7 of each byte of the result is set where that
  // byte of `word` is `c`, and nowhere else, as the sum cannot carry between bytes.
  static std::uint64_t bytesEqual(std::uint64_t word, char c) {
    std::uint64_t const low7 = 0x7F7F7F7F7F7F7F7Full;
    std::uint64_t const x = word ^ (0x0101010101010101ull * static_cast<unsigned char>(c));
    return ~(((x & low7) + low7) | x) & ~low7;
  }
};

#endif
