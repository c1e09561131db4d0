#include "Address.h"

#include <sstream>

namespace kpe {
namespace constraints {

Address::Address() = default;

Address::Address(int column, int row, int bankId, int offset) : Address() {
  setColumn(column);
  setRow(row);
  setBankId(bankId);
  setOffset(offset);
}

Address::~Address() = default;

bool Address::isSpecified() const {
  return hasColumn() || hasRow() || hasBankId() || hasOffset();
}

bool Address::isUsable() const {
  return (hasColumn() && hasRow()) || (hasBankId() && hasOffset());
}

void Address::offsetColumn(int n) {
  if (hasColumn()) {
    setColumn(getColumn() + n);
  }
}

std::string Address::str() const {
  std::ostringstream text;
  text << "(" << getColumn() << "," << getRow() << "," << getBankId() << "," << getOffset() << ")";
  return text.str();
}

}  // namespace constraints
}  // namespace kpe
