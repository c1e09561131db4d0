#ifndef TARVO_ADDRESS_H
#define TARVO_ADDRESS_H

#include <string>

namespace kpe {
namespace constraints {

// A location in memory: column, row, bank and offset, each unset (-1) unless given. A set of
// -1 leaves a cell unset.
class Address {
 public:
  Address();
  Address(int column, int row, int bankId, int offset);
  virtual ~Address();
  Address(Address const&) = default;
  Address& operator=(Address const&) = default;

  int getColumn() const { return m_column; }
  int getRow() const { return m_row; }
  int getBankId() const { return m_bankId; }
  int getOffset() const { return m_offset; }

  void setColumn(int value) { m_column = value; }
  void setRow(int value) { m_row = value; }
  void setBankId(int value) { m_bankId = value; }
  void setOffset(int value) { m_offset = value; }

  bool hasColumn() const { return m_column != kUnset; }
  bool hasRow() const { return m_row != kUnset; }
  bool hasBankId() const { return m_bankId != kUnset; }
  bool hasOffset() const { return m_offset != kUnset; }

  // True when any cell is set.
  bool isSpecified() const;
  // True when column and row, or bankId and offset, are set.
  bool isUsable() const;
  // Moves a set column by n; a sum of -1 leaves the column unset.
  void offsetColumn(int n);

  // "(column,row,bankId,offset)", unset cells as -1.
  std::string str() const;

 private:
  static constexpr int kUnset = -1;

  // Plain numbers: a store holds an address or more in every memory and buffer constraint.
  int m_column = kUnset;
  int m_row = kUnset;
  int m_bankId = kUnset;
  int m_offset = kUnset;
};

}  // namespace constraints
}  // namespace kpe

#endif
