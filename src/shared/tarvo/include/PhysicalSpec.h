#ifndef TARVO_PHYSICALSPEC_H
#define TARVO_PHYSICALSPEC_H

#include <cstdint>
#include <string>
#include <utility>

#include "HDPoint.h"

namespace kpe {
namespace constraints {

// Marks an unset offset of a relative node; plain coordinates of cells use -1 instead.
struct DefaultXYValues {
  static constexpr int XCoordinateNotSetValue = -9999;
  static constexpr int YCoordinateNotSetValue = -9999;
};

// A rectangle as (high point, low point); each point is (column, row).
typedef std::pair<HDPoint<int>, HDPoint<int>> PhysicalRect;

// A place on the array, given by name or by coordinates, never both: setting the name
// clears the coordinates, channel, bankId and offset; setting coordinates clears the name,
// bankId and offset but keeps the channel. So bankId and offset go in after the coordinates.
class PhysicalSpec {
 public:
  enum PhysicalType : std::uint32_t { TILE = 0, SHIM = 1, MEM = 2, UNKNOWN_TILE_TYPE = 3 };

  explicit PhysicalSpec(PhysicalType type = TILE);
  PhysicalSpec(PhysicalSpec const&) = default;
  PhysicalSpec& operator=(PhysicalSpec const&) = default;

  // "core", "shim", "mem", or "unknown-tile-type".
  static std::string toString(PhysicalType type);
  // MEM for exactly "mem", SHIM for exactly "shim", TILE for every other text.
  static PhysicalType toPhysicalSpecTileType(std::string const& text);

  virtual ~PhysicalSpec();
  // Resets all six cells; the type stays.
  virtual void clearAll();
  virtual bool isShim() const;
  virtual bool isTile() const;
  virtual bool isMem() const;
  virtual PhysicalType getPhysicalType() const;
  virtual std::string const& getName() const;
  virtual int getColumn() const;
  virtual int getRow() const;
  virtual int getChannel() const;
  virtual int getBankId() const;
  virtual int getOffset() const;
  virtual HDPoint<int> getXY() const;
  virtual void setName(std::string const& name);
  virtual void setColumn(int column);
  virtual void setRow(int row);
  virtual void setBankId(int bankId);
  virtual void setOffset(int offset);
  virtual void setChannel(int channel);
  virtual void setXY(HDPoint<int> const& xy);
  virtual void setXY(int column, int row);
  // Forwards to setXY.
  virtual void setPoint(HDPoint<int> const& xy);
  // hasName or hasColumn.
  virtual bool isSpecified() const;
  virtual bool hasName() const;
  virtual bool hasColumn() const;
  virtual bool hasRow() const;
  virtual bool hasChannel() const;
  virtual bool hasBankId() const;
  virtual bool hasOffset() const;
  // Second forms of hasChannel, hasName and hasColumn.
  virtual bool isChannelSet() const;
  virtual bool isNamed() const;
  virtual bool isColumnSet() const;
  virtual std::string str() const;
  // A set column must lie within the rectangle's columns and, if a row is set, the row
  // within its rows, bounds included. A place with neither is inside every rectangle.
  virtual bool isInside(PhysicalRect const& rect) const;
  // Second form of clearAll.
  virtual void reset();

  void setPhysicalType(PhysicalType type) { m_type = type; }

 private:
  static constexpr int kUnset = -1;

  // Plain cells, unset while empty or -1 (a set of -1 leaves a cell unset): a store holds a
  // place in every tile, shim and port location constraint.
  std::string m_name;
  int m_column = kUnset;
  int m_row = kUnset;
  int m_channel = kUnset;
  PhysicalType m_type;
  int m_bankId = kUnset;
  int m_offset = kUnset;
};

}  // namespace constraints
}  // namespace kpe

namespace json {

// The places the document reader makes for range items, one per place type.
class TileSpec : public kpe::constraints::PhysicalSpec {
 public:
  TileSpec() : PhysicalSpec(TILE) {}
};

class MemSpec : public kpe::constraints::PhysicalSpec {
 public:
  MemSpec() : PhysicalSpec(MEM) {}
};

// A shim place; its coordinates are column and channel.
class ShimSpec : public kpe::constraints::PhysicalSpec {
 public:
  ShimSpec() : PhysicalSpec(SHIM) {}
  virtual int getShimChannel() const { return getChannel(); }
  virtual void setShimChannel(int channel) { setChannel(channel); }
};

}  // namespace json

#endif
