#ifndef TARVO_ADDRESS_H
#define TARVO_ADDRESS_H

#include <string>

#include "DefaultedAttr.h"

namespace kpe {
namespace constraints {

// A location in memory: column, row, bank and offset, each unset (-1) unless given.
class Address {
 public:
  Address();
  Address(int column, int row, int bankId, int offset);
  virtual ~Address();
  Address(Address const&) = default;
  Address& operator=(Address const&) = default;

  int getColumn() const { return m_column.getInt(); }
  int getRow() const { return m_row.getInt(); }
  int getBankId() const { return m_bankId.getInt(); }
  int getOffset() const { return m_offset.getInt(); }

  void setColumn(int value) { m_column.setInt(value); }
  void setRow(int value) { m_row.setInt(value); }
  void setBankId(int value) { m_bankId.setInt(value); }
  void setOffset(int value) { m_offset.setInt(value); }

  bool hasColumn() const { return m_column.isSet(); }
  bool hasRow() const { return m_row.isSet(); }
  bool hasBankId() const { return m_bankId.isSet(); }
  bool hasOffset() const { return m_offset.isSet(); }

  // True when any cell is set.
  bool isSpecified() const;
  // True when column and row, or bankId and offset, are set.
  bool isUsable() const;
  // Moves a set column by n; a sum of -1 leaves the column unset.
  void offsetColumn(int n);

  // "(column,row,bankId,offset)", unset cells as -1.
  std::string str() const;

 private:
  DefaultedAttr m_column;
  DefaultedAttr m_row;
  DefaultedAttr m_bankId;
  DefaultedAttr m_offset;
};

}  // namespace constraints
}  // namespace kpe

#endif
