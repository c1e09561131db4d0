#ifndef TARVO_DEFAULTEDATTR_H
#define TARVO_DEFAULTEDATTR_H

#include <cstdint>
#include <memory>
#include <string>
#include <variant>
#include <vector>

#include "HATAttr.h"

namespace kpe {
namespace constraints {

// A value cell with a default of its own kind: -1 for integers, -1.0 for doubles, false,
// the empty string, the empty list. A cell is "set" exactly when its value differs from the
// default, however it got there: writing the default, or arithmetic that lands on it, makes
// the cell unset again. A set of another kind converts the cell as a HATAttr would.
//
// A store holds hundreds of thousands of cells, most of them numbers, so a cell keeps only
// its kinds, its number and a pointer inline (24 bytes): the default is known from the kind,
// and the texts of a cell that held a string or a list live apart, made when one is first
// set. The string or list that a string or list cell hands out by reference is made when
// the cell first holds a value; until then a read hands out a shared empty one. Once made it
// stays, so a reference handed out after that follows later sets as a member would. Reads
// never make it, so that const reads from several threads stay safe.
class DefaultedAttr {
 public:
  // Kinds used: BOOL, INT, DOUBLE, STRING, STRING_LIST.
  explicit DefaultedAttr(HATAttr::Kind kind);
  DefaultedAttr(DefaultedAttr const& other);
  DefaultedAttr& operator=(DefaultedAttr const& other);
  ~DefaultedAttr();

  HATAttr::Kind getKind() const { return static_cast<HATAttr::Kind>(m_kind); }
  bool isSet() const { return !m_default; }
  void reset();

  bool getBool() const { return held().getBoolVal(); }
  int getInt() const { return held().getIntVal(); }
  double getDouble() const { return held().getDoubleVal(); }
  // The string of a string cell, empty for cells of other kinds.
  std::string const& getString() const;
  // The list of a list cell, empty for cells of other kinds.
  std::vector<std::string> const& getStringList() const;
  // The value as text, whatever the kind.
  std::string toString() const { return held().getStringVal(); }

  void setBool(bool value);
  void setInt(int value);
  void setDouble(double value);
  void setString(std::string const& value);
  void setStringList(std::vector<std::string> const& value);

 private:
  struct Texts;

  // The cell as a HATAttr of the kind it holds, for the conversions between kinds.
  HATAttr held() const;
  Texts& texts();
  void updateDefaultFlag();
  void refreshShown();

  // The number of a BOOL or INT (m_int) or DOUBLE (m_double) value.
  union {
    long long m_int;
    double m_double;
  };
  // Null until the cell holds a non-empty string or list, or hands one out by reference.
  std::unique_ptr<Texts> m_texts;
  // The kind held now; a set of another kind changes it.
  std::uint8_t m_kind;
  // The kind the cell was made with, which fixes its default.
  std::uint8_t m_ownKind;
  bool m_default = true;
};

}  // namespace constraints
}  // namespace kpe

#endif
