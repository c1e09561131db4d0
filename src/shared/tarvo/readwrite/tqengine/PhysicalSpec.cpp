#include "PhysicalSpec.h"

#include <sstream>

namespace kpe {
namespace constraints {

PhysicalSpec::PhysicalSpec(PhysicalType type) : m_type(type) {}

PhysicalSpec::~PhysicalSpec() = default;

std::string PhysicalSpec::toString(PhysicalType type) {
  switch (type) {
    case TILE:
      return "core";
    case SHIM:
      return "shim";
    case MEM:
      return "mem";
    default:
      return "unknown-tile-type";
  }
}

// "core" is not compared: every text but the two others is a tile.
PhysicalSpec::PhysicalType PhysicalSpec::toPhysicalSpecTileType(std::string const& text) {
  if (text == "mem") {
    return MEM;
  }
  if (text == "shim") {
    return SHIM;
  }
  return TILE;
}

void PhysicalSpec::clearAll() {
  m_name.clear();
  m_column = m_row = m_channel = m_bankId = m_offset = kUnset;
}

bool PhysicalSpec::isShim() const {
  return m_type == SHIM;
}
bool PhysicalSpec::isTile() const {
  return m_type == TILE;
}
bool PhysicalSpec::isMem() const {
  return m_type == MEM;
}
PhysicalSpec::PhysicalType PhysicalSpec::getPhysicalType() const {
  return m_type;
}
std::string const& PhysicalSpec::getName() const {
  return m_name;
}
int PhysicalSpec::getColumn() const {
  return m_column;
}
int PhysicalSpec::getRow() const {
  return m_row;
}
int PhysicalSpec::getChannel() const {
  return m_channel;
}
int PhysicalSpec::getBankId() const {
  return m_bankId;
}
int PhysicalSpec::getOffset() const {
  return m_offset;
}
HDPoint<int> PhysicalSpec::getXY() const {
  return HDPoint<int>(getColumn(), getRow());
}

void PhysicalSpec::setName(std::string const& name) {
  clearAll();
  m_name = name;
}

void PhysicalSpec::setColumn(int column) {
  setXY(column, getRow());
}
void PhysicalSpec::setRow(int row) {
  setXY(getColumn(), row);
}
void PhysicalSpec::setBankId(int bankId) {
  m_bankId = bankId;
}
void PhysicalSpec::setOffset(int offset) {
  m_offset = offset;
}
void PhysicalSpec::setChannel(int channel) {
  m_channel = channel;
}
void PhysicalSpec::setXY(HDPoint<int> const& xy) {
  setXY(xy.x, xy.y);
}

void PhysicalSpec::setXY(int column, int row) {
  int const channel = getChannel();
  clearAll();
  m_column = column;
  m_row = row;
  m_channel = channel;
}

void PhysicalSpec::setPoint(HDPoint<int> const& xy) {
  setXY(xy);
}
bool PhysicalSpec::isSpecified() const {
  return hasName() || hasColumn();
}
bool PhysicalSpec::hasName() const {
  return !m_name.empty();
}
bool PhysicalSpec::hasColumn() const {
  return m_column != kUnset;
}
bool PhysicalSpec::hasRow() const {
  return m_row != kUnset;
}
bool PhysicalSpec::hasChannel() const {
  return m_channel != kUnset;
}
bool PhysicalSpec::hasBankId() const {
  return m_bankId != kUnset;
}
bool PhysicalSpec::hasOffset() const {
  return m_offset != kUnset;
}
bool PhysicalSpec::isChannelSet() const {
  return hasChannel();
}
bool PhysicalSpec::isNamed() const {
  return hasName();
}
bool PhysicalSpec::isColumnSet() const {
  return hasColumn();
}

std::string PhysicalSpec::str() const {
  std::ostringstream text;
  if (isTile()) {
    text << "tile=";
  } else if (isShim()) {
    text << "shim=";
  } else if (isMem()) {
    text << "mem=";
  }
  if (hasName()) {
    text << "(" << getName() << ")";
  } else if (isShim()) {
    text << "(" << getColumn() << "," << getChannel() << ")";
  } else if (isTile() || isMem()) {
    text << "(" << getColumn() << "," << getRow() << ")";
  }
  return text.str();
}

bool PhysicalSpec::isInside(PhysicalRect const& rect) const {
  HDPoint<int> const& high = rect.first;
  HDPoint<int> const& low = rect.second;
  if (hasColumn() && (getColumn() < low.x || getColumn() > high.x)) {
    return false;
  }
  if (!hasRow()) {
    return true;
  }
  return getRow() >= low.y && getRow() <= high.y;
}

void PhysicalSpec::reset() {
  clearAll();
}

}  // namespace constraints
}  // namespace kpe
