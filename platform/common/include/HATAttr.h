#ifndef TARVO_HATATTR_H
#define TARVO_HATATTR_H

#include <memory>
#include <string>
#include <vector>

// A typed value cell. The kind is fixed at construction; a set of a kind other than the
// cell's own converts the cell. A bit set of state flags rides along for the owner's use.
//
// Models hold cells by the hundred thousand, most of them numbers, so a cell is 32 bytes:
// the number and the double share their place, and a text or a list lives apart, made when
// a non-empty one is first set.
class HATAttr {
 public:
  enum Kind { BOOL = 0, INT = 1, DOUBLE = 2, STRING = 3, ULONG = 4, STRING_LIST = 6 };
  enum StateFlag : unsigned { STATE_DEFAULT = 0x1 };

  explicit HATAttr(Kind kind = STRING);
  HATAttr(HATAttr const& other);
  HATAttr& operator=(HATAttr const& other);
  HATAttr(HATAttr&& other) noexcept = default;
  HATAttr& operator=(HATAttr&& other) noexcept = default;
  ~HATAttr();

  Kind getKind() const { return m_kind; }

  void setBoolVal(bool value);
  void setIntVal(int value);
  void setDoubleVal(double value);
  void setStringVal(std::string const& value);
  void setULongVal(unsigned long long value);
  void setStringList(std::vector<std::string> const& value);

  // Each getter converts from the held kind; a list reads as its items joined by blanks.
  bool getBoolVal() const;
  int getIntVal() const;
  double getDoubleVal() const;
  unsigned long long getULongVal() const;
  std::string getStringVal() const;
  // The list last set, whatever the kind now is.
  std::vector<std::string> const& getStringList() const;

  unsigned getState() const { return m_state; }
  bool hasStateFlag(unsigned flag) const { return (m_state & flag) != 0; }
  void setStateFlag(unsigned flag) { m_state |= flag; }
  void clearStateFlag(unsigned flag) { m_state &= ~flag; }

  bool operator==(HATAttr const& other) const;
  bool operator!=(HATAttr const& other) const { return !(*this == other); }

 private:
  std::string const& text() const;

  Kind m_kind;
  unsigned m_state = 0;
  // Only the member of the kind is ever read: m_double for DOUBLE, m_int for the others.
  union {
    long long m_int;  // BOOL, INT and ULONG
    double m_double;
  };
  std::unique_ptr<std::string> m_string;             // null while empty
  std::unique_ptr<std::vector<std::string>> m_list;  // null while empty
};

#endif
