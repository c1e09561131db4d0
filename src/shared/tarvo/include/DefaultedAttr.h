#ifndef TARVO_DEFAULTEDATTR_H
#define TARVO_DEFAULTEDATTR_H

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
// the cell unset again. The flag lives in the HATAttr state (STATE_DEFAULT).
//
// A store holds hundreds of thousands of cells, most of them numbers, so a cell keeps no more
// than its HATAttr and its own kind inline: the default is known from the kind, and the string
// or list that a string or list cell hands out by reference lives apart, made when the cell
// first holds a value; until then a read hands out a shared empty one. Once made it stays,
// so a reference handed out after that follows later sets as a member would. Reads never
// make it, so that const reads from several threads stay safe.
class DefaultedAttr {
 public:
  // Kinds used: BOOL, INT, DOUBLE, STRING, STRING_LIST.
  explicit DefaultedAttr(HATAttr::Kind kind);
  DefaultedAttr(DefaultedAttr const& other);
  DefaultedAttr& operator=(DefaultedAttr const& other);
  ~DefaultedAttr();

  HATAttr::Kind getKind() const { return m_attr.getKind(); }
  bool isSet() const { return !m_attr.hasStateFlag(HATAttr::STATE_DEFAULT); }
  void reset();

  bool getBool() const { return m_attr.getBoolVal(); }
  int getInt() const { return m_attr.getIntVal(); }
  double getDouble() const { return m_attr.getDoubleVal(); }
  // The string of a string cell, empty for cells of other kinds.
  std::string const& getString() const;
  // The list of a list cell, empty for cells of other kinds.
  std::vector<std::string> const& getStringList() const;
  // The value as text, whatever the kind.
  std::string toString() const { return m_attr.getStringVal(); }

  void setBool(bool value);
  void setInt(int value);
  void setDouble(double value);
  void setString(std::string const& value);
  void setStringList(std::vector<std::string> const& value);

 private:
  // getStringVal of a string cell, or the list of a list cell, kept for reference reads.
  typedef std::variant<std::string, std::vector<std::string>> Cache;

  // The default value of the cell's own kind.
  static HATAttr const& defaultOf(HATAttr::Kind kind);
  static Cache emptyCache(HATAttr::Kind ownKind);
  // The cache of a string or list cell, made empty if there is none.
  Cache& cache();
  void updateDefaultFlag();
  void refreshCaches();

  HATAttr m_attr;
  // The kind the cell was made with; a set of another kind converts m_attr, not this.
  HATAttr::Kind m_ownKind;
  // Null for cells of other kinds than STRING and STRING_LIST, and until first set.
  std::unique_ptr<Cache> m_cache;
};

}  // namespace constraints
}  // namespace kpe

#endif
