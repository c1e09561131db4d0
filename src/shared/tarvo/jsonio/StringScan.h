#ifndef TARVO_STRINGSCAN_H
#define TARVO_STRINGSCAN_H

#include <cstddef>
#include <cstdint>
#include <string_view>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

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

  static bool isWhitespace(char c) { return c == ' ' || c == '\n' || c == '\r' || c == '\t'; }
  // A byte that a JSON string does not hold as it stands: quotation mark, backslash, control.
  static bool endsPlainRun(char c) { return c == '"' || c == '\\' || static_cast<unsigned char>(c) < 0x20; }

  // The length of the leading run of [begin, end) that a JSON string holds as it stands.
  static std::size_t plainRun(char const* begin, char const* end) {
    char const* at = begin;
#if defined(__SSE2__)
    __m128i const quote = _mm_set1_epi8('"');
    __m128i const backslash = _mm_set1_epi8('\\');
    __m128i const control = _mm_set1_epi8(0x1F);
    for (; end - at >= 16; at += 16) {
      __m128i const bytes = _mm_loadu_si128(reinterpret_cast<__m128i const*>(at));
      // Unsigned: a byte is at most 0x1F exactly when the larger of it and 0x1F is 0x1F.
      __m128i const stop = _mm_or_si128(_mm_or_si128(_mm_cmpeq_epi8(bytes, quote), _mm_cmpeq_epi8(bytes, backslash)),
                                        _mm_cmpeq_epi8(_mm_max_epu8(bytes, control), control));
      if (unsigned const mask = static_cast<unsigned>(_mm_movemask_epi8(stop)))
        return static_cast<std::size_t>(at - begin) + static_cast<std::size_t>(__builtin_ctz(mask));
    }
#endif
    while (at < end && !endsPlainRun(*at))
      ++at;
    return static_cast<std::size_t>(at - begin);
  }

  // The length of the leading run of JSON whitespace in [begin, end).
  static std::size_t whitespaceRun(char const* begin, char const* end) {
    char const* at = begin;
#if defined(__SSE2__)
    for (; end - at >= 16; at += 16) {
      __m128i const bytes = _mm_loadu_si128(reinterpret_cast<__m128i const*>(at));
      __m128i const space = _mm_or_si128(
          _mm_or_si128(_mm_cmpeq_epi8(bytes, _mm_set1_epi8(' ')), _mm_cmpeq_epi8(bytes, _mm_set1_epi8('\n'))),
          _mm_or_si128(_mm_cmpeq_epi8(bytes, _mm_set1_epi8('\r')), _mm_cmpeq_epi8(bytes, _mm_set1_epi8('\t'))));
      if (unsigned const mask = ~static_cast<unsigned>(_mm_movemask_epi8(space)) & 0xFFFFu)
        return static_cast<std::size_t>(at - begin) + static_cast<std::size_t>(__builtin_ctz(mask));
    }
#endif
    while (at < end && isWhitespace(*at))
      ++at;
    return static_cast<std::size_t>(at - begin);
  }
};

}  // namespace jsonio
}  // namespace tarvo

#endif
