#ifndef TARVO_KPEPRJSTRENCODER_H
#define TARVO_KPEPRJSTRENCODER_H

#include <map>
#include <string>
#include <vector>

// Turns a set of names into one text, and a text into one number, independent of the order
// in which the names were gathered. A digest for comparison: nothing separates the pieces,
// so "ab"+"c" and "a"+"bc" encode alike, and there is no decoding.
class KPEPrjStrEncoder {
 public:
  KPEPrjStrEncoder& operator=(KPEPrjStrEncoder const&) { return *this; }

  // The items in ascending byte order, joined with nothing between them.
  static std::string encodeAsString(std::vector<std::string> const& items);
  // Each key in ascending byte order, followed by its own items in ascending byte order.
  static std::string encodeAsString(std::map<std::string, std::vector<std::string>> const& groups);
  // The sum of the bytes, each taken as a signed 8-bit value, modulo 2^32.
  static unsigned int encodeAsInt(std::string const& text);
};

#endif
