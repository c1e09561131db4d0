#include "LocationConstraints.h"

#include <cstring>
#include <sstream>

#include "AsciiCase.h"
#include "ComMsgMgr.h"
#include "ConstrDocumentKeys.h"
#include "ConstrHandler.h"
#include "ConstrWriteSupport.h"

namespace kpe {
namespace constraints {

typedef ConstrDocumentKeys Keys;

using namespace writesupport;

namespace {

void shiftSpecColumn(PhysicalSpec& spec, int n) {
  if (spec.hasColumn() && !spec.hasName()) {
    spec.setColumn(spec.getColumn() + n);
  }
}

// Adds `object` under `key` with its source member behind it, unless it is empty.
void addKindMember(BaseConstraint const& constraint, JsonDocument& document, JsonValue& value, char const* key,
                   JsonValue& object) {
  if (object.ObjectEmpty()) {
    return;
  }
  addMember(value, key, object, document);
  constraint.writeSrcInfo(document, value, key);
}

void addIntIfSet(JsonValue& object, char const* key, bool isSet, int number, JsonDocument& document) {
  if (isSet) {
    addInt(object, key, number, document);
  }
}

// Each usable address as its label and its text, with no separator.
std::string addressesText(std::initializer_list<std::pair<char const*, Address const*>> addresses) {
  std::string text;
  for (auto const& labelled : addresses) {
    if (labelled.second->isUsable()) {
      text += labelled.first + labelled.second->str();
    }
  }
  return text;
}

// The addresses that have a set cell, in order; the positions close up.
void addAddressArray(BaseConstraint const& constraint, JsonDocument& document, JsonValue& value, char const* key,
                     std::initializer_list<Address const*> addresses) {
  JsonValue array(rapidjson::kArrayType);
  for (Address const* address : addresses) {
    JsonValue object = makeAddressObject(*address, document);
    if (!object.ObjectEmpty()) {
      array.PushBack(object, document.GetAllocator());
    }
  }
  if (array.Empty()) {
    return;
  }
  addMember(value, key, array, document);
  constraint.writeSrcInfo(document, value, key);
}

}  // namespace

// ---------------------------------------------------------------------------------------------
// TileConstr

TileConstr::TileConstr(std::string const& objName) : BaseConstraint(TILE, NODE, objName), m_spec(PhysicalSpec::TILE) {}

void TileConstr::clone(ConstrHandler& target, BaseNameResolver const* resolver) const {
  std::string const name = resolvedObjName(resolver);
  if (isNameForm()) {
    target.setTileConstr(name, getName());
  } else if (hasColumn()) {
    target.setTileConstr(name, getColumn(), getRow(), getPhysicalType());
  } else {
    return;
  }
  if (TileConstr* made = target.getTileConstr(name)) {
    made->copySrcInfoFrom(this);
  }
}

void TileConstr::write(JsonDocument& document, JsonValue& value, BaseNameResolver const*) const {
  JsonValue tile(rapidjson::kObjectType);
  if (isNameForm()) {
    addString(tile, Keys::name, getName(), document);
  } else {
    addIntIfSet(tile, Keys::column, hasColumn(), getColumn(), document);
    addIntIfSet(tile, Keys::row, hasRow(), getRow(), document);
    if (hasColumn()) {
      addString(tile, Keys::tileType, PhysicalSpec::toString(getPhysicalType()), document);
    }
  }
  if (tile.ObjectEmpty()) {
    std::string const objName = getObjName();
    ComMsgMgr::sendMsg::eval(1, __FILE__, __LINE__, "tarvo", ComMsgMgr::MsgMask(0x4000000), "@75-586@%s",
                             objName.c_str());
    return;
  }
  addKindMember(*this, document, value, Keys::tile, tile);
}

void TileConstr::offsetColumn(int n) {
  shiftSpecColumn(m_spec, n);
}

std::string TileConstr::str() const {
  std::ostringstream text;
  text << " abs(" << getObjName() << ",tile)=(" << getColumn() << "," << getRow() << ")";
  return text.str();
}

std::string const& TileConstr::getName() const {
  return m_spec.getName();
}
int TileConstr::getColumn() const {
  return m_spec.getColumn();
}
int TileConstr::getRow() const {
  return m_spec.getRow();
}
HDPoint<int> TileConstr::getXY() const {
  return m_spec.getXY();
}
void TileConstr::setPhysicalType(PhysicalSpec::PhysicalType type) {
  m_spec.setPhysicalType(type);
}
PhysicalSpec::PhysicalType TileConstr::getPhysicalType() const {
  return m_spec.getPhysicalType();
}
bool TileConstr::isTileType() const {
  return m_spec.getPhysicalType() == PhysicalSpec::TILE;
}
bool TileConstr::isUnknownType() const {
  return m_spec.getPhysicalType() == PhysicalSpec::UNKNOWN_TILE_TYPE;
}
void TileConstr::setName(std::string const& name) {
  m_spec.setName(name);
}
void TileConstr::setColumn(int column) {
  m_spec.setColumn(column);
}
void TileConstr::setRow(int row) {
  m_spec.setRow(row);
}
void TileConstr::setXY(HDPoint<int> const& xy) {
  m_spec.setXY(xy);
}
void TileConstr::setXY(int column, int row) {
  m_spec.setXY(column, row);
}
void TileConstr::setPoint(HDPoint<int> const& xy) {
  m_spec.setPoint(xy);
}
bool TileConstr::isSpecified() const {
  return m_spec.isSpecified();
}
bool TileConstr::hasName() const {
  return m_spec.hasName();
}
bool TileConstr::hasColumn() const {
  return m_spec.hasColumn();
}
bool TileConstr::hasRow() const {
  return m_spec.hasRow();
}
bool TileConstr::isNameForm() const {
  return m_spec.isNamed();
}
bool TileConstr::isCoordinateForm() const {
  return m_spec.isColumnSet();
}

// ---------------------------------------------------------------------------------------------
// ShimConstr

ShimConstr::ShimConstr(std::string const& objName) : BaseConstraint(SHIM, NODE, objName), m_spec(PhysicalSpec::SHIM) {}

void ShimConstr::clone(ConstrHandler& target, BaseNameResolver const* resolver) const {
  std::string const name = resolvedObjName(resolver);
  if (isNameForm()) {
    target.setShimConstr(name, getName());
  } else if (hasColumn()) {
    target.setShimConstr(name, getColumn(), getChannel());
  } else {
    return;
  }
  if (ShimConstr* made = target.getShimConstr(name)) {
    made->copySrcInfoFrom(this);
  }
}

void ShimConstr::write(JsonDocument& document, JsonValue& value, BaseNameResolver const*) const {
  JsonValue shim(rapidjson::kObjectType);
  if (isNameForm()) {
    addString(shim, Keys::name, getName(), document);
  } else {
    addIntIfSet(shim, Keys::column, hasColumn(), getColumn(), document);
    addIntIfSet(shim, Keys::channel, hasChannel(), getChannel(), document);
  }
  addKindMember(*this, document, value, Keys::shim, shim);
}

void ShimConstr::offsetColumn(int n) {
  shiftSpecColumn(m_spec, n);
}

std::string ShimConstr::str() const {
  std::ostringstream text;
  text << " abs(" << getObjName() << ",shim)=(" << getColumn() << "," << getChannel() << ")";
  return text.str();
}

std::string const& ShimConstr::getName() const {
  return m_spec.getName();
}
int ShimConstr::getColumn() const {
  return m_spec.getColumn();
}
int ShimConstr::getChannel() const {
  return m_spec.getChannel();
}
void ShimConstr::setName(std::string const& name) {
  m_spec.setName(name);
}
void ShimConstr::setColumn(int column) {
  m_spec.setColumn(column);
}
void ShimConstr::setChannel(int channel) {
  m_spec.setChannel(channel);
}
bool ShimConstr::isValid() const {
  return (hasName() || hasColumn()) && hasChannel();
}
bool ShimConstr::hasName() const {
  return m_spec.hasName();
}
bool ShimConstr::hasColumn() const {
  return m_spec.hasColumn();
}
bool ShimConstr::hasChannel() const {
  return m_spec.hasChannel();
}
bool ShimConstr::isNameForm() const {
  return m_spec.isNamed();
}
bool ShimConstr::isCoordinateForm() const {
  return m_spec.isColumnSet();
}

// ---------------------------------------------------------------------------------------------
// PortLocConstr

PortLocConstr::PortLocConstr(std::string const& objName) : BaseConstraint(PORT_LOC, PORT, objName) {}

void PortLocConstr::clone(ConstrHandler& target, BaseNameResolver const* resolver) const {
  std::string const name = resolvedObjName(resolver);
  if (isNameForm()) {
    target.setPortLocConstr(name, getName(), getChannel());
  } else if (hasColumn()) {
    target.setPortLocConstr(name, getPhysicalType(), getColumn(), getRow(), getChannel());
  } else {
    return;
  }
  if (PortLocConstr* made = target.getPortLocConstr(name)) {
    made->copySrcInfoFrom(this);
  }
}

void PortLocConstr::write(JsonDocument& document, JsonValue& value, BaseNameResolver const*) const {
  JsonValue place(rapidjson::kObjectType);
  if (isNameForm()) {
    addString(place, Keys::name, getName(), document);
    addIntIfSet(place, Keys::channel, hasChannel(), getChannel(), document);
  } else if (hasColumn() || hasRow() || hasChannel()) {
    addString(place, Keys::tileType, PhysicalSpec::toString(getPhysicalType()), document);
    addIntIfSet(place, Keys::row, hasRow(), getRow(), document);
    addIntIfSet(place, Keys::column, hasColumn(), getColumn(), document);
    addIntIfSet(place, Keys::channel, hasChannel(), getChannel(), document);
  }
  addKindMember(*this, document, value, Keys::portLoc, place);
}

void PortLocConstr::offsetColumn(int n) {
  shiftSpecColumn(m_spec, n);
}

// Says "shim" whatever the place's type, as the shim constraint does.
std::string PortLocConstr::str() const {
  std::ostringstream text;
  text << " abs(" << getObjName() << ",shim)=(" << getColumn() << "," << getChannel() << ")";
  return text.str();
}

void PortLocConstr::setPhysicalType(PhysicalSpec::PhysicalType type) {
  m_spec.setPhysicalType(type);
}
PhysicalSpec::PhysicalType PortLocConstr::getPhysicalType() const {
  return m_spec.getPhysicalType();
}
std::string const& PortLocConstr::getName() const {
  return m_spec.getName();
}
int PortLocConstr::getColumn() const {
  return m_spec.getColumn();
}
int PortLocConstr::getRow() const {
  return m_spec.getRow();
}
int PortLocConstr::getChannel() const {
  return m_spec.getChannel();
}
void PortLocConstr::setName(std::string const& name) {
  m_spec.setName(name);
}
void PortLocConstr::setColumn(int column) {
  m_spec.setColumn(column);
}
void PortLocConstr::setRow(int row) {
  m_spec.setRow(row);
}
void PortLocConstr::setChannel(int channel) {
  m_spec.setChannel(channel);
}
bool PortLocConstr::isValid() const {
  return (hasName() || hasColumn()) && hasChannel();
}
bool PortLocConstr::hasName() const {
  return m_spec.hasName();
}
bool PortLocConstr::hasColumn() const {
  return m_spec.hasColumn();
}
bool PortLocConstr::hasRow() const {
  return m_spec.hasRow();
}
bool PortLocConstr::hasChannel() const {
  return m_spec.hasChannel();
}
bool PortLocConstr::isNameForm() const {
  return m_spec.isNamed();
}
bool PortLocConstr::isCoordinateForm() const {
  return m_spec.isColumnSet();
}

// ---------------------------------------------------------------------------------------------
// StreamChannelConstr

StreamChannelConstr::StreamChannelConstr(std::string const& objName) : BaseConstraint(STREAM_CHANNEL, PORT, objName) {}

void StreamChannelConstr::clone(ConstrHandler& target, BaseNameResolver const* resolver) const {
  std::string const name = resolvedObjName(resolver);
  if (hasColumn() && hasRow()) {
    target.setStreamChannelConstr(name, getColumn(), getRow(), getChannel(), getDirectionAsStr());
  } else {
    target.setStreamChannelConstr(name, getOffset(), getChannel(), getDirectionAsStr());
  }
  if (StreamChannelConstr* made = target.getStreamChannelConstr(name)) {
    made->copySrcInfoFrom(this);
  }
}

void StreamChannelConstr::write(JsonDocument& document, JsonValue& value, BaseNameResolver const*) const {
  JsonValue channel(rapidjson::kObjectType);
  addIntIfSet(channel, Keys::column, hasColumn(), getColumn(), document);
  addIntIfSet(channel, Keys::row, hasRow(), getRow(), document);
  addIntIfSet(channel, Keys::offset, hasOffset(), getOffset(), document);
  if (hasDirection()) {
    addString(channel, Keys::direction, getDirectionAsStr(), document);
  }
  addIntIfSet(channel, Keys::channel, hasChannel(), getChannel(), document);
  addKindMember(*this, document, value, Keys::streamChannel, channel);
}

// The offset form is relative to the port and needs no shift.
void StreamChannelConstr::offsetColumn(int n) {
  if (hasColumn()) {
    setColumn(getColumn() + n);
  }
}

std::string StreamChannelConstr::str() const {
  std::ostringstream text;
  text << " stream_chan(" << getObjName() << ")=";
  if (hasOffset()) {
    text << "Relative:(" << getOffset() << "," << getChannel() << "," << getDirectionAsStr() << ")";
  } else {
    text << "Absolute:(" << getColumn() << "," << getRow() << "," << getChannel() << "," << getDirectionAsStr() << ")";
  }
  return text.str();
}

int StreamChannelConstr::getColumn() const {
  return m_column;
}
int StreamChannelConstr::getRow() const {
  return m_row;
}
int StreamChannelConstr::getOffset() const {
  return m_offset;
}
StreamChannelConstr::Direction StreamChannelConstr::getDirection() const {
  return m_direction;
}

namespace {

// The texts of StreamChannelConstr::Direction, in its order; read back in any case.
char const* const kDirectionTexts[] = {"North", "South", "East", "West", "unset"};

}  // namespace

std::string StreamChannelConstr::getDirectionAsStr() const {
  return kDirectionTexts[m_direction <= Unset ? m_direction : Unset];
}

int StreamChannelConstr::getChannel() const {
  return m_channel;
}
void StreamChannelConstr::setColumn(int column) {
  m_column = column;
}
void StreamChannelConstr::setRow(int row) {
  m_row = row;
}
void StreamChannelConstr::setOffset(int offset) {
  m_offset = offset;
}

void StreamChannelConstr::setDirection(std::string const& direction) {
  if (direction.empty()) {
    m_direction = Unset;
    return;
  }
  for (std::uint32_t i = North; i <= Unset; ++i) {
    if (AsciiCase::equals(direction, kDirectionTexts[i], std::strlen(kDirectionTexts[i]))) {
      m_direction = static_cast<Direction>(i);
      return;
    }
  }
}

void StreamChannelConstr::setDirection(Direction direction) {
  m_direction = direction;
}
void StreamChannelConstr::setChannel(int channel) {
  m_channel = channel;
}

bool StreamChannelConstr::isValid() const {
  bool const absolute = hasColumn() && hasRow() && hasChannel() && hasDirection();
  bool const relative = hasOffset() && hasChannel() && hasDirection();
  return absolute || relative;
}

bool StreamChannelConstr::hasColumn() const {
  return m_column != kUnset;
}
bool StreamChannelConstr::hasRow() const {
  return m_row != kUnset;
}
bool StreamChannelConstr::hasOffset() const {
  return m_offset != kUnset;
}
bool StreamChannelConstr::hasDirection() const {
  return m_direction != Unset;
}
bool StreamChannelConstr::hasChannel() const {
  return m_channel != kUnset;
}

// ---------------------------------------------------------------------------------------------
// BufferConstr, MemConstr, ReservedMemoryConstr

BufferConstr::BufferConstr(std::string const& objName) : BaseConstraint(BUFFER, PORT, objName) {}

void BufferConstr::clone(ConstrHandler& target, BaseNameResolver const* resolver) const {
  std::string const name = resolvedObjName(resolver);
  target.setBufferConstr(name, m_ping, m_pong, m_rtpSelector);
  if (BufferConstr* made = target.getBufferConstr(name)) {
    made->copySrcInfoFrom(this);
  }
}

void BufferConstr::write(JsonDocument& document, JsonValue& value, BaseNameResolver const*) const {
  addAddressArray(*this, document, value, Keys::buffers, {&m_ping, &m_pong, &m_rtpSelector});
}

void BufferConstr::offsetColumn(int n) {
  m_ping.offsetColumn(n);
  m_pong.offsetColumn(n);
  m_rtpSelector.offsetColumn(n);
}

std::string BufferConstr::str() const {
  return " buf(" + getObjName() +
         ",data_buffer)=" + addressesText({{"ping=", &m_ping}, {"pong=", &m_pong}, {"rtpSelector=", &m_rtpSelector}});
}

MemConstr::MemConstr(std::string const& objName) : BaseConstraint(MEM, NODE, objName) {}

void MemConstr::clone(ConstrHandler& target, BaseNameResolver const* resolver) const {
  std::string const name = resolvedObjName(resolver);
  target.setMemConstr(name, m_ping, m_pong);
  if (MemConstr* made = target.getMemConstr(name)) {
    made->copySrcInfoFrom(this);
  }
}

void MemConstr::write(JsonDocument& document, JsonValue& value, BaseNameResolver const*) const {
  addAddressArray(*this, document, value, Keys::mem, {&m_ping, &m_pong});
}

void MemConstr::offsetColumn(int n) {
  m_ping.offsetColumn(n);
  m_pong.offsetColumn(n);
}

std::string MemConstr::str() const {
  return " mem(" + getObjName() + ",shared_buffer)=" + addressesText({{"ping=", &m_ping}, {"pong=", &m_pong}});
}

ReservedMemoryConstr::ReservedMemoryConstr(std::string const& objName)
    : BaseConstraint(RESERVED_MEMORY, NODE, objName) {}

void ReservedMemoryConstr::clone(ConstrHandler& target, BaseNameResolver const* resolver) const {
  std::string const name = resolvedObjName(resolver);
  target.setReservedMemoryConstr(name, m_address);
  if (ReservedMemoryConstr* made = target.getReservedMemoryConstr(name)) {
    made->copySrcInfoFrom(this);
  }
}

void ReservedMemoryConstr::write(JsonDocument& document, JsonValue& value, BaseNameResolver const*) const {
  JsonValue address = makeAddressObject(m_address, document);
  addKindMember(*this, document, value, Keys::reservedMemory, address);
}

void ReservedMemoryConstr::offsetColumn(int n) {
  m_address.offsetColumn(n);
}

std::string ReservedMemoryConstr::str() const {
  return " buf(" + getObjName() + ",reserved_memory)=" + m_address.str();
}

}  // namespace constraints
}  // namespace kpe
