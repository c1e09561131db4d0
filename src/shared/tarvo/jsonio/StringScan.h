#ifndef TARVO_STRINGSCAN_H
#define TARVO_STRINGSCAN_H

#include <cstdint>
#include <string_view>

namespace tarvo {
namespace jsonio {

// Byte-wise string tests that the readers and writers share; names are compared byte for byte.
class StringScan {
 public:
  static bool startsWith(std::string_view text, std::string_view prefix) {
    return text.substr(0, prefix.size()) == prefix;
  }
  static bool endsWith(std::string_view text, std::string_view suffix) {
    return text.size() >= suffix.size() && text.substr(text.size() - suffix.size()) == suffix;
  }

  // For scans eight bytes at a time: bit 7 of each byte of the result is set where that
  // byte of `word` is `c`, and nowhere else, as the sum cannot carry between bytes.
  static std::uint64_t bytesEqual(std::uint64_t word, char c) {
    std::uint64_t const low7 = 0x7F7F7F7F7F7F7F7Full;
    std::uint64_t const x = word ^ (0x0101010101010101ull * static_cast<unsigned char>(c));
    return ~(((x & low7) + low7) | x) & ~low7;
  }
};

}  // namespace jsonio
}  // namespace tarvo

#endif
