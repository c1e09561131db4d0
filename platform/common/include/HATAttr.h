#ifndef HATATTR_H
#define HATATTR_H

#include <string>
#include <vector>

// A typed value cell. The kind is fixed at construction; a set of a kind other than the
// cell's own converts the cell. A bit set of state flags rides along for the owner's use.
class HATAttr {
 public:
  enum Kind { BOOL = 0, INT = 1, DOUBLE = 2, STRING = 3, ULONG = 4, STRING_LIST = 6 };
  enum StateFlag : unsigned { STATE_DEFAULT = 0x1 };

  explicit HATAttr(Kind kind = STRING);

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
  std::vector<std::string> const& getStringList() const { return m_list; }

  unsigned getState() const { return m_state; }
  bool hasStateFlag(unsigned flag) const { return (m_state & flag) != 0; }
  void setStateFlag(unsigned flag) { m_state |= flag; }
  void clearStateFlag(unsigned flag) { m_state &= ~flag; }

  bool operator==(HATAttr const& other) const;
  bool operator!=(HATAttr const& other) const { return !(*this == other); }

 private:
  Kind m_kind;
  unsigned m_state = 0;
  long long m_int = 0;  // BOOL, INT and ULONG
  double m_double = 0.0;
  std::string m_string;
  std::vector<std::string> m_list;
};

#endif
