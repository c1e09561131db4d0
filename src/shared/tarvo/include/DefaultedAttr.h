#ifndef KPE_CONSTRAINTS_DEFAULTEDATTR_H
#define KPE_CONSTRAINTS_DEFAULTEDATTR_H

#include <string>
#include <vector>

#include "HATAttr.h"

namespace kpe {
namespace constraints {

// A value cell with a default of its own kind: -1 for integers, -1.0 for doubles, false,
// the empty string, the empty list. A cell is "set" exactly when its value differs from the
// default, however it got there: writing the default, or arithmetic that lands on it, makes
// the cell unset again. The flag lives in the HATAttr state (STATE_DEFAULT).
//
// The default is known from the cell's own kind and not stored: a store holds hundreds of
// thousands of cells, and a second HATAttr would add half again to each.
class DefaultedAttr {
 public:
  // Kinds used: BOOL, INT, DOUBLE, STRING, STRING_LIST.
  explicit DefaultedAttr(HATAttr::Kind kind);

  HATAttr::Kind getKind() const { return m_attr.getKind(); }
  bool isSet() const { return !m_attr.hasStateFlag(HATAttr::STATE_DEFAULT); }
  void reset();

  bool getBool() const { return m_attr.getBoolVal(); }
  int getInt() const { return m_attr.getIntVal(); }
  double getDouble() const { return m_attr.getDoubleVal(); }
  std::string const& getString() const { return m_string; }
  std::vector<std::string> const& getStringList() const { return m_list; }
  // The value as text, whatever the kind.
  std::string toString() const { return m_attr.getStringVal(); }

  void setBool(bool value);
  void setInt(int value);
  void setDouble(double value);
  void setString(std::string const& value);
  void setStringList(std::vector<std::string> const& value);

 private:
  // The default value of the cell's own kind.
  static HATAttr const& defaultOf(HATAttr::Kind kind);
  void updateDefaultFlag();
  void refreshCaches();

  HATAttr m_attr;
  // The kind the cell was made with; a set of another kind converts m_attr, not this.
  HATAttr::Kind m_ownKind;
  std::string m_string;             // getStringVal of the cell, kept for reference reads
  std::vector<std::string> m_list;  // in step with the cell's list
};

}  // namespace constraints
}  // namespace kpe

#endif
