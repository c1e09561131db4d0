#ifndef TARVO_LOCATIONCONSTRAINTS_H
#define TARVO_LOCATIONCONSTRAINTS_H

#include <string>

#include "Address.h"
#include "BaseConstraint.h"
#include "PhysicalSpec.h"

namespace kpe {
namespace constraints {

// Where a node goes: a named tile or one given by column, row and tile type.
class TileConstr : public BaseConstraint {
 public:
  explicit TileConstr(std::string const& objName);

  void clone(ConstrHandler& target, BaseNameResolver const* resolver) const override;
  // "tile" by name, or by "column", "row", "tile_type"; an empty tile writes nothing and
  // says so.
  void write(JsonDocument& document, JsonValue& value, BaseNameResolver const* resolver) const override;
  void offsetColumn(int n) override;
  std::string str() const override;

  virtual std::string const& getName() const;
  virtual int getColumn() const;
  virtual int getRow() const;
  virtual HDPoint<int> getXY() const;
  virtual void setPhysicalType(PhysicalSpec::PhysicalType type);
  virtual PhysicalSpec::PhysicalType getPhysicalType() const;
  virtual bool isTileType() const;
  virtual bool isUnknownType() const;
  virtual void setName(std::string const& name);
  virtual void setColumn(int column);
  virtual void setRow(int row);
  virtual void setXY(HDPoint<int> const& xy);
  virtual void setXY(int column, int row);
  virtual void setPoint(HDPoint<int> const& xy);
  // A name or a column is set.
  virtual bool isSpecified() const;
  virtual bool hasName() const;
  virtual bool hasColumn() const;
  virtual bool hasRow() const;
  // Choose between the name form and the coordinate form of writing and cloning.
  virtual bool isNameForm() const;
  virtual bool isCoordinateForm() const;

  PhysicalSpec const& getPhysicalSpec() const { return m_spec; }

 private:
  PhysicalSpec m_spec;
};

// Where a node's shim goes: a named shim or one given by column and channel.
class ShimConstr : public BaseConstraint {
 public:
  explicit ShimConstr(std::string const& objName);

  void clone(ConstrHandler& target, BaseNameResolver const* resolver) const override;
  void write(JsonDocument& document, JsonValue& value, BaseNameResolver const* resolver) const override;
  void offsetColumn(int n) override;
  std::string str() const override;

  virtual std::string const& getName() const;
  virtual int getColumn() const;
  virtual int getChannel() const;
  virtual void setName(std::string const& name);
  virtual void setColumn(int column);
  virtual void setChannel(int channel);
  // (a name or a column) and a channel.
  virtual bool isValid() const;
  virtual bool hasName() const;
  virtual bool hasColumn() const;
  virtual bool hasChannel() const;
  virtual bool isNameForm() const;
  virtual bool isCoordinateForm() const;

  PhysicalSpec const& getPhysicalSpec() const { return m_spec; }

 private:
  PhysicalSpec m_spec;
};

// Where a port goes: a named place with a channel, or type, column, row and channel.
class PortLocConstr : public BaseConstraint {
 public:
  explicit PortLocConstr(std::string const& objName);

  void clone(ConstrHandler& target, BaseNameResolver const* resolver) const override;
  void write(JsonDocument& document, JsonValue& value, BaseNameResolver const* resolver) const override;
  void offsetColumn(int n) override;
  std::string str() const override;

  virtual void setPhysicalType(PhysicalSpec::PhysicalType type);
  virtual PhysicalSpec::PhysicalType getPhysicalType() const;
  virtual std::string const& getName() const;
  virtual int getColumn() const;
  virtual int getRow() const;
  virtual int getChannel() const;
  virtual void setName(std::string const& name);
  virtual void setColumn(int column);
  virtual void setRow(int row);
  virtual void setChannel(int channel);
  // (a name or a column) and a channel.
  virtual bool isValid() const;
  virtual bool hasName() const;
  virtual bool hasColumn() const;
  virtual bool hasRow() const;
  virtual bool hasChannel() const;
  virtual bool isNameForm() const;
  virtual bool isCoordinateForm() const;

  PhysicalSpec const& getPhysicalSpec() const { return m_spec; }

 private:
  PhysicalSpec m_spec;
};

// The stream channel of a port: absolute (column, row) or relative (offset), with a channel
// and a direction.
class StreamChannelConstr : public BaseConstraint {
 public:
  enum Direction : std::uint32_t { North = 0, South = 1, East = 2, West = 3, Unset = 4 };

  explicit StreamChannelConstr(std::string const& objName);

  void clone(ConstrHandler& target, BaseNameResolver const* resolver) const override;
  void write(JsonDocument& document, JsonValue& value, BaseNameResolver const* resolver) const override;
  void offsetColumn(int n) override;
  std::string str() const override;

  virtual int getColumn() const;
  virtual int getRow() const;
  virtual int getOffset() const;
  virtual Direction getDirection() const;
  // "North", "South", "East", "West" or "unset".
  virtual std::string getDirectionAsStr() const;
  virtual int getChannel() const;
  virtual void setColumn(int column);
  virtual void setRow(int row);
  virtual void setOffset(int offset);
  // Compared without regard to case; an empty text gives Unset; any other text changes
  // nothing.
  virtual void setDirection(std::string const& direction);
  virtual void setDirection(Direction direction);
  virtual void setChannel(int channel);
  // Absolute (column, row, channel, direction) or relative (offset, channel, direction).
  virtual bool isValid() const;
  virtual bool hasColumn() const;
  virtual bool hasRow() const;
  virtual bool hasOffset() const;
  virtual bool hasDirection() const;
  virtual bool hasChannel() const;

 private:
  static constexpr int kUnset = -1;

  // Plain cells, unset at -1 (a set of -1 leaves a cell unset).
  int m_column = kUnset;
  int m_row = kUnset;
  int m_offset = kUnset;
  Direction m_direction = Unset;
  int m_channel = kUnset;
};

// The ping, pong and run-time-parameter selector buffers of a port.
class BufferConstr : public BaseConstraint {
 public:
  explicit BufferConstr(std::string const& objName);

  void clone(ConstrHandler& target, BaseNameResolver const* resolver) const override;
  void write(JsonDocument& document, JsonValue& value, BaseNameResolver const* resolver) const override;
  void offsetColumn(int n) override;
  std::string str() const override;

  Address const& getPing() const { return m_ping; }
  Address const& getPong() const { return m_pong; }
  Address const& getRtpSelector() const { return m_rtpSelector; }
  void setPing(Address const& address) { m_ping = address; }
  void setPong(Address const& address) { m_pong = address; }
  void setRtpSelector(Address const& address) { m_rtpSelector = address; }

 private:
  Address m_ping;
  Address m_pong;
  Address m_rtpSelector;
};

// The ping and pong shared buffers of a node.
class MemConstr : public BaseConstraint {
 public:
  explicit MemConstr(std::string const& objName);

  void clone(ConstrHandler& target, BaseNameResolver const* resolver) const override;
  void write(JsonDocument& document, JsonValue& value, BaseNameResolver const* resolver) const override;
  void offsetColumn(int n) override;
  std::string str() const override;

  Address const& getPing() const { return m_ping; }
  Address const& getPong() const { return m_pong; }
  void setPing(Address const& address) { m_ping = address; }
  void setPong(Address const& address) { m_pong = address; }

 private:
  Address m_ping;
  Address m_pong;
};

// Memory reserved for a node at one address.
class ReservedMemoryConstr : public BaseConstraint {
 public:
  explicit ReservedMemoryConstr(std::string const& objName);

  void clone(ConstrHandler& target, BaseNameResolver const* resolver) const override;
  void write(JsonDocument& document, JsonValue& value, BaseNameResolver const* resolver) const override;
  void offsetColumn(int n) override;
  std::string str() const override;

  Address const& getAddress() const { return m_address; }
  void setAddress(Address const& address) { m_address = address; }

 private:
  Address m_address;
};

}  // namespace constraints
}  // namespace kpe

#endif
