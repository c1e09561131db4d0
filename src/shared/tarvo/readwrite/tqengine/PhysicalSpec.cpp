#include "PhysicalSpec.h"

#include <sstream>

namespace kpe {
namespace constraints {

PhysicalSpec::PhysicalSpec(PhysicalType type)
    : m_name(HATAttr::STRING),
      m_column(HATAttr::INT),
      m_row(HATAttr::INT),
      m_channel(HATAttr::INT),
      m_type(type),
      m_bankId(HATAttr::INT),
      m_offset(HATAttr::INT) {}

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
  m_name.reset();
  m_column.reset();
  m_row.reset();
  m_channel.reset();
  m_bankId.reset();
  m_offset.reset();
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
  return m_name.getString();
}
int PhysicalSpec::getColumn() const {
  return m_column.getInt();
}
int PhysicalSpec::getRow() const {
  return m_row.getInt();
}
int PhysicalSpec::getChannel() const {
  return m_channel.getInt();
}
int PhysicalSpec::getBankId() const {
  return m_bankId.getInt();
}
int PhysicalSpec::getOffset() const {
  return m_offset.getInt();
}
HDPoint<int> PhysicalSpec::getXY() const {
  return HDPoint<int>(getColumn(), getRow());
}

void PhysicalSpec::setName(std::string const& name) {
  clearAll();
  m_name.setString(name);
}

void PhysicalSpec::setColumn(int column) {
  setXY(column, getRow());
}
void PhysicalSpec::setRow(int row) {
  setXY(getColumn(), row);
}
void PhysicalSpec::setBankId(int bankId) {
  m_bankId.setInt(bankId);
}
void PhysicalSpec::setOffset(int offset) {
  m_offset.setInt(offset);
}
void PhysicalSpec::setChannel(int channel) {
  m_channel.setInt(channel);
}
void PhysicalSpec::setXY(HDPoint<int> const& xy) {
  setXY(xy.x, xy.y);
}

void PhysicalSpec::setXY(int column, int row) {
  int const channel = getChannel();
  clearAll();
  m_column.setInt(column);
  m_row.setInt(row);
  m_channel.setInt(channel);
}

void PhysicalSpec::setPoint(HDPoint<int> const& xy) {
  setXY(xy);
}
bool PhysicalSpec::isSpecified() const {
  return hasName() || hasColumn();
}
bool PhysicalSpec::hasName() const {
  return m_name.isSet();
}
bool PhysicalSpec::hasColumn() const {
  return m_column.isSet();
}
bool PhysicalSpec::hasRow() const {
  return m_row.isSet();
}
bool PhysicalSpec::hasChannel() const {
  return m_channel.isSet();
}
bool PhysicalSpec::hasBankId() const {
  return m_bankId.isSet();
}
bool PhysicalSpec::hasOffset() const {
  return m_offset.isSet();
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
