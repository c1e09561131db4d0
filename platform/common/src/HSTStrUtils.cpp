#include "HSTStrUtils.h"

#include <cstring>

char const* HSTStrUtils::contains(char const* text, char const* part) {
  if (text == nullptr || part == nullptr) return nullptr;
  return std::strstr(text, part);
}

bool HSTStrUtils::contains(std::string const& text, std::string const& part) {
  return text.find(part) != std::string::npos;
}

std::vector<std::string> HSTStrUtils::split(std::string const& text, char separator) {
  std::vector<std::string> pieces;
  std::string::size_type start = 0;
  for (;;) {
    std::string::size_type const end = text.find(separator, start);
    pieces.push_back(text.substr(start, end - start));
    if (end == std::string::npos) return pieces;
    start = end + 1;
  }
}

std::string HSTStrUtils::join(std::vector<std::string> const& pieces, std::string const& separator) {
  std::string joined;
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    if (i != 0) joined += separator;
    joined += pieces[i];
  }
  return joined;
}

std::string HSTStrUtils::trim(std::string const& text) {
  char const* const blanks = " \t\r\n";
  std::string::size_type const first = text.find_first_not_of(blanks);
  if (first == std::string::npos) return std::string();
  return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}
