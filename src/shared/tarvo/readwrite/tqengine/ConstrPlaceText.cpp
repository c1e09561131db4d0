#include "ConstrPlaceText.h"

#include <cerrno>
#include <climits>
#include <cstdlib>

namespace kpe {
namespace constraints {

namespace {

char const* const kBlanks = " \t\n\r\f\v";

std::string trimBlanks(std::string const& text) {
  std::string::size_type const first = text.find_first_not_of(kBlanks);
  if (first == std::string::npos) return std::string();
  std::string::size_type const last = text.find_last_not_of(kBlanks);
  return text.substr(first, last - first + 1);
}

}  // namespace

int ConstrPlaceText::toNumber(std::string const& text) {
  std::string const trimmed = trimBlanks(text);
  if (trimmed.empty()) return -1;
  errno = 0;
  char* end = nullptr;
  long const value = std::strtol(trimmed.c_str(), &end, 10);
  if (end == trimmed.c_str() || errno == ERANGE || value < INT_MIN || value > INT_MAX) return -1;
  if (std::to_string(value) != trimmed) return -1;
  return static_cast<int>(value);
}

bool ConstrPlaceText::stripParentheses(std::string& text) {
  bool const opens = !text.empty() && text.front() == '(';
  if (opens) text.erase(0, 1);
  bool const closes = !text.empty() && text.back() == ')';
  if (closes) text.pop_back();
  return opens == closes;
}

ConstrPlaceText::Split ConstrPlaceText::splitRange(std::string const& text) {
  Split split;
  std::string::size_type const colon = text.find(':');
  split.low = text.substr(0, colon);
  if (colon != std::string::npos) split.high = text.substr(colon + 1);
  split.missingLow = split.low.empty() && !split.high.empty();
  return split;
}

ConstrPlaceText::Place ConstrPlaceText::parsePlace(std::string piece) {
  Place place;
  place.balanced = stripParentheses(piece);
  std::string::size_type const comma = piece.find(',');
  if (comma != std::string::npos && comma > 0 && comma + 1 < piece.size()) {
    place.column = toNumber(piece.substr(0, comma));
    place.second = toNumber(piece.substr(comma + 1));
    place.hasSecond = true;
    return place;
  }
  int const column = toNumber(piece);
  if (column != -1)
    place.column = column;
  else
    place.name = piece;
  return place;
}

int ConstrPlaceText::axisOffset(std::string const& piece, char axis) {
  std::string behind = piece.substr(piece.find(axis) + 1);
  std::string::size_type const equals = behind.find('=');
  if (equals != std::string::npos) behind.erase(0, equals + 1);
  return toNumber(behind);
}

ConstrPlaceText::RelativeNode ConstrPlaceText::parseRelativeNode(std::string const& text) {
  RelativeNode relative;
  std::string::size_type const colon = text.find(':');
  if (colon == std::string::npos || colon == 0 || colon + 1 == text.size()) return relative;
  relative.valid = true;
  relative.node = text.substr(0, colon);
  relative.offsetText = text.substr(colon + 1);
  std::string offsets = relative.offsetText;
  relative.balanced = stripParentheses(offsets);

  std::string xPiece;
  std::string yPiece;
  std::string::size_type const comma = offsets.find(',');
  if (comma != std::string::npos) {
    xPiece = offsets.substr(0, comma);
    yPiece = offsets.substr(comma + 1);
  } else {
    if (offsets.find('X') != std::string::npos) xPiece = offsets;
    if (offsets.find('Y') != std::string::npos) yPiece = offsets;
  }
  if (xPiece.find('X') != std::string::npos) relative.x = axisOffset(xPiece, 'X');
  if (yPiece.find('Y') != std::string::npos) relative.y = axisOffset(yPiece, 'Y');
  return relative;
}

}  // namespace constraints
}  // namespace kpe
