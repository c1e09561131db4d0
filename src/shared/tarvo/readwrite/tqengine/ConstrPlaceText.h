#ifndef TARVO_CONSTRPLACETEXT_H
#define TARVO_CONSTRPLACETEXT_H

#include <string>

#include "PhysicalSpec.h"

namespace kpe {
namespace constraints {

// The texts that people write in constraint documents where the writer would give numbers:
// places of area group ranges ("(2,3):(4,5)", "7", "tile_a") and relative node offsets
// ("n1:(X=1,Y=-2)"). Pure parsing; the reader sends the messages.
class ConstrPlaceText {
 public:
  // Decimal number of `text` with the blanks " \t\n\r\f\v" trimmed; -1 when nothing
  // converts, the value leaves int, or the text is not the number's own decimal form (so
  // "007" and "+7" are no numbers).
  static int toNumber(std::string const& text);

  // Removes one "(" at the front and one ")" at the back. False when only one of the two
  // stood there (the one present is still removed).
  static bool stripParentheses(std::string& text);

  // A place text cut at its first ":" into low and high; without ":" all of it is low.
  struct Split {
    std::string low;
    std::string high;
    bool missingLow = false;  // low empty, high not
  };
  static Split splitRange(std::string const& text);

  // One place: "(column,second)" where second is the row (the channel for a shim), a bare
  // column, or otherwise a name.
  struct Place {
    std::string name;
    int column = -1;
    int second = -1;
    bool hasSecond = false;  // the text gave a pair
    bool balanced = true;    // false: only one parenthesis stood at the ends
  };
  static Place parsePlace(std::string piece);

  // "node:(X=x,Y=y)", "node:X=x", "node:(Y=y)". Offsets that are not given keep the
  // not-set values of DefaultXYValues.
  struct RelativeNode {
    bool valid = false;  // false: nothing before or behind the first ":"
    std::string node;
    int x = DefaultXYValues::XCoordinateNotSetValue;
    int y = DefaultXYValues::YCoordinateNotSetValue;
    bool balanced = true;
    std::string offsetText;  // the text behind the colon, for the parenthesis message
  };
  static RelativeNode parseRelativeNode(std::string const& text);

 private:
  // The number behind the first `axis` letter of `piece`, and behind the first "=" of that.
  static int axisOffset(std::string const& piece, char axis);
};

}  // namespace constraints
}  // namespace kpe

#endif
