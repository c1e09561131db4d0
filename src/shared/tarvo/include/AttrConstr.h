#ifndef TARVO_ATTRCONSTR_H
#define TARVO_ATTRCONSTR_H

#include <cstdint>
#include <string>

#include "BaseConstraint.h"
#include "DefaultedAttr.h"

namespace kpe {
namespace constraints {

// One named value on an object. The constraint name is the canonical attribute name.
class AttrConstr : public BaseConstraint {
 public:
  enum AttrType : std::uint32_t { BOOL = 0, INT = 1, DOUBLE = 2, STRING = 3 };

  AttrConstr(ObjectType objType, std::string const& objName, AttrType attrType, std::string const& canonicalName);

  // Name operations; all compare without regard to case.
  static std::string const& getCanonicalPrefix();  // "kpe."
  static std::string const& getOldMEPrefix();      // "tq."
  static bool isCanonicalAttrName(std::string const& name);
  static bool isOldMEAttrName(std::string const& name);
  static bool isPredefinedAttrName(std::string const& name);
  // Puts "kpe." before a name that lacks it and upper-cases the predefined names.
  static std::string makeCanonicalAttrName(std::string const& name);
  // Whether `constrName` equals makeCanonicalAttrName(name) without regard to case, without
  // making that name.
  static bool isCanonicalNameOf(std::string const& constrName, std::string const& name);

  void clone(ConstrHandler& target, BaseNameResolver const* resolver) const override;
  // The value under the name without prefixes, in lower case; some keys skip negatives.
  void write(JsonDocument& document, JsonValue& value, BaseNameResolver const* resolver) const override;
  void offsetColumn(int n) override;
  std::string str() const override;

  virtual void resetValue();
  virtual AttrType getAttrType() const;
  virtual bool getBoolValue() const;
  virtual int getIntValue() const;
  virtual double getDoubleValue() const;
  virtual std::string getStringValue() const;
  virtual void setValue(bool value);
  virtual void setValue(int value);
  virtual void setValue(double value);
  virtual void setValue(std::string const& value);
  // Keeps a literal text from choosing the bool form.
  void setValue(char const* value) { setValue(std::string(value)); }
  // Second forms of the setters.
  virtual void setBoolValue(bool value);
  virtual void setIntValue(int value);
  virtual void setDoubleValue(double value);
  virtual void setStringValue(std::string const& value);
  virtual bool hasValue() const;

  // The document key: the name without "kpe." and then "tq.", in lower case.
  std::string getDocumentKey() const;

 private:
  static HATAttr::Kind cellKind(AttrType type);

  DefaultedAttr m_value;
  AttrType m_attrType;
};

}  // namespace constraints
}  // namespace kpe

#endif
