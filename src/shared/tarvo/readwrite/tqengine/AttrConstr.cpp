#include "AttrConstr.h"

#include <cstring>
#include <sstream>

#include "AsciiCase.h"
#include "ConstrHandler.h"
#include "ConstrWriteSupport.h"

namespace kpe {
namespace constraints {

using namespace writesupport;

namespace {

std::string withoutPrefix(std::string const& name, std::string const& prefix) {
  return AsciiCase::startsWith(name, prefix) ? name.substr(prefix.size()) : name;
}

// Keys whose negative values mean "not given": the first two are read as doubles.
bool isNegativeOfDefaultedKey(std::string const& key, AttrConstr const& attr) {
  if (key == "runtime" || key == "utilization") {
    return attr.getDoubleValue() < 0.0;
  }
  if (key == "buffer_count" || key == "margin" || key == "fifo_depth") {
    return attr.getIntValue() < 0;
  }
  return false;
}

}  // namespace

AttrConstr::AttrConstr(ObjectType objType, std::string const& objName, AttrType attrType,
                       std::string const& canonicalName)
    : BaseConstraint(ATTR, canonicalName, objType, objName), m_value(cellKind(attrType)), m_attrType(attrType) {}

HATAttr::Kind AttrConstr::cellKind(AttrType type) {
  switch (type) {
    case BOOL:
      return HATAttr::BOOL;
    case INT:
      return HATAttr::INT;
    case DOUBLE:
      return HATAttr::DOUBLE;
    default:
      return HATAttr::STRING;
  }
}

std::string const& AttrConstr::getCanonicalPrefix() {
  static std::string const prefix = "kpe.";
  return prefix;
}

std::string const& AttrConstr::getOldMEPrefix() {
  static std::string const prefix = "tq.";
  return prefix;
}

bool AttrConstr::isCanonicalAttrName(std::string const& name) {
  return AsciiCase::startsWith(name, getCanonicalPrefix());
}

bool AttrConstr::isOldMEAttrName(std::string const& name) {
  return AsciiCase::startsWith(name, getOldMEPrefix());
}

bool AttrConstr::isPredefinedAttrName(std::string const& name) {
  static char const* const predefined[] = {"KPE.RUNTIME", "KPE.UTILIZATION", "KPE.MARGIN", "KPE.FIFO_DEPTH",
                                           "KPE.BUFFER_COUNT"};
  for (char const* known : predefined) {
    if (AsciiCase::equals(name, known, std::strlen(known))) {
      return true;
    }
  }
  return false;
}

// The old-prefix test runs only on names that carry the canonical prefix, so it never hits:
// "tq.x" becomes "kpe.tq.x", and the writer strips both prefixes in turn.
std::string AttrConstr::makeCanonicalAttrName(std::string const& name) {
  std::string canonical = name;
  if (!isCanonicalAttrName(name)) {
    canonical = getCanonicalPrefix() + name;
  } else if (isOldMEAttrName(name)) {
    canonical = getCanonicalPrefix() + name.substr(getOldMEPrefix().size());
  }
  if (isPredefinedAttrName(canonical)) {
    AsciiCase::toUpper(canonical);
  }
  return canonical;
}

// Case does not count, so the upper-casing of predefined names does not either; what is left
// of makeCanonicalAttrName is the prefix put before a name that lacks it.
bool AttrConstr::isCanonicalNameOf(std::string const& constrName, std::string const& name) {
  std::string const& prefix = getCanonicalPrefix();
  if (constrName.size() == name.size()) {
    return isCanonicalAttrName(name) && AsciiCase::equals(constrName, name);
  }
  return constrName.size() == prefix.size() + name.size() && !isCanonicalAttrName(name) &&
         AsciiCase::startsWith(constrName, prefix) &&
         AsciiCase::equals(name, constrName.data() + prefix.size(), name.size());
}

std::string AttrConstr::getDocumentKey() const {
  return AsciiCase::toLowerCopy(withoutPrefix(withoutPrefix(getConstrName(), getCanonicalPrefix()), getOldMEPrefix()));
}

void AttrConstr::clone(ConstrHandler& target, BaseNameResolver const* resolver) const {
  std::string const name = resolvedObjName(resolver);
  switch (m_attrType) {
    case BOOL:
      target.setAttrConstr(getObjType(), name, getConstrName(), getBoolValue());
      break;
    case INT:
      target.setAttrConstr(getObjType(), name, getConstrName(), getIntValue());
      break;
    case DOUBLE:
      target.setAttrConstr(getObjType(), name, getConstrName(), getDoubleValue());
      break;
    default:
      target.setAttrConstr(getObjType(), name, getConstrName(), getStringValue());
      break;
  }
  if (AttrConstr* made = target.getAttrConstr(name, getConstrName())) {
    made->copySrcInfoFrom(this);
  }
}

void AttrConstr::write(JsonDocument& document, JsonValue& value, BaseNameResolver const*) const {
  std::string const key = getDocumentKey();
  if (isNegativeOfDefaultedKey(key, *this)) {
    return;
  }
  JsonValue attribute;
  switch (m_attrType) {
    case BOOL:
      attribute.SetBool(getBoolValue());
      break;
    case INT:
      attribute.SetInt(getIntValue());
      break;
    case DOUBLE:
      attribute.SetDouble(getDoubleValue());
      break;
    default:
      attribute = makeString(getStringValue(), document);
      break;
  }
  addMember(value, key, attribute, document);
  writeSrcInfo(document, value, key);
}

void AttrConstr::offsetColumn(int) {}

std::string AttrConstr::str() const {
  std::ostringstream text;
  text << " attr(" << getObjName() << ")=(";
  switch (m_attrType) {
    case BOOL:
      text << (getBoolValue() ? "true" : "false");
      break;
    case INT:
      text << getIntValue();
      break;
    case DOUBLE:
      text << getDoubleValue();
      break;
    default:
      text << getStringValue();
      break;
  }
  text << ")";
  return text.str();
}

void AttrConstr::resetValue() {
  m_value.reset();
}
AttrConstr::AttrType AttrConstr::getAttrType() const {
  return m_attrType;
}
bool AttrConstr::getBoolValue() const {
  return m_value.getBool();
}
int AttrConstr::getIntValue() const {
  return m_value.getInt();
}
double AttrConstr::getDoubleValue() const {
  return m_value.getDouble();
}
std::string AttrConstr::getStringValue() const {
  return m_value.toString();
}
void AttrConstr::setValue(bool value) {
  m_value.setBool(value);
}
void AttrConstr::setValue(int value) {
  m_value.setInt(value);
}
void AttrConstr::setValue(double value) {
  m_value.setDouble(value);
}
void AttrConstr::setValue(std::string const& value) {
  m_value.setString(value);
}
void AttrConstr::setBoolValue(bool value) {
  setValue(value);
}
void AttrConstr::setIntValue(int value) {
  setValue(value);
}
void AttrConstr::setDoubleValue(double value) {
  setValue(value);
}
void AttrConstr::setStringValue(std::string const& value) {
  setValue(value);
}
bool AttrConstr::hasValue() const {
  return m_value.isSet();
}

}  // namespace constraints
}  // namespace kpe
