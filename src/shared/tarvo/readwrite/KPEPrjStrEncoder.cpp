#include "KPEPrjStrEncoder.h"

#include <algorithm>

namespace {

void appendSorted(std::vector<std::string> items, std::string& text) {
  std::sort(items.begin(), items.end());
  for (std::string const& item : items) text += item;
}

}  // namespace

std::string KPEPrjStrEncoder::encodeAsString(std::vector<std::string> const& items) {
  std::string text;
  appendSorted(items, text);
  return text;
}

std::string KPEPrjStrEncoder::encodeAsString(std::map<std::string, std::vector<std::string>> const& groups) {
  // A map already walks its keys in ascending byte order.
  std::string text;
  for (auto const& group : groups) {
    text += group.first;
    appendSorted(group.second, text);
  }
  return text;
}

unsigned int KPEPrjStrEncoder::encodeAsInt(std::string const& text) {
  unsigned int sum = 0;
  for (char c : text) sum += static_cast<unsigned int>(static_cast<int>(static_cast<signed char>(c)));
  return sum;
}
