#ifndef TARVO_JSONNUMBER_H
#define TARVO_JSONNUMBER_H

#include <climits>
#include <cstdint>

namespace tarvo {
namespace jsonio {

// One number as the parser's events gave it, read by the rules of a document tree and of the
// JSON utility getters, for readers that work event by event: an Integer fits 32 bits signed,
// an Unsigned long 64 bits unsigned.
struct JsonNumber {
  enum Kind { None, Signed, Unsigned, Real };
  Kind kind = None;
  std::int64_t signedValue = 0;
  std::uint64_t unsignedValue = 0;
  double real = 0.0;

  static JsonNumber ofSigned(std::int64_t value) { return JsonNumber{Signed, value, 0, 0.0}; }
  static JsonNumber ofUnsigned(std::uint64_t value) { return JsonNumber{Unsigned, 0, value, 0.0}; }
  static JsonNumber ofReal(double value) { return JsonNumber{Real, 0, 0, value}; }

  // Whether the value reads as an Integer.
  bool isInteger() const {
    return (kind == Signed && signedValue >= INT_MIN && signedValue <= INT_MAX) ||
           (kind == Unsigned && unsignedValue <= static_cast<std::uint64_t>(INT_MAX));
  }
  int integer() const {
    if (isInteger()) return kind == Signed ? static_cast<int>(signedValue) : static_cast<int>(unsignedValue);
    // A number written with a fraction within range reads as its integer part.
    if (kind == Real && real > -2147483649.0 && real < 2147483648.0) return static_cast<int>(real);
    return 0;
  }
  bool isULong() const { return kind == Unsigned || (kind == Signed && signedValue >= 0); }
  // The Unsigned long value; 0 for a value that is none.
  std::uint64_t ulong() const {
    if (!isULong()) return 0;
    return kind == Unsigned ? unsignedValue : static_cast<std::uint64_t>(signedValue);
  }
};

}  // namespace jsonio
}  // namespace tarvo

#endif
