#include "DefaultedAttr.h"

namespace kpe {
namespace constraints {

namespace {

HATAttr makeDefault(HATAttr::Kind kind) {
  HATAttr value(kind);
  switch (kind) {
    case HATAttr::INT:
      value.setIntVal(-1);
      break;
    case HATAttr::DOUBLE:
      value.setDoubleVal(-1.0);
      break;
    case HATAttr::BOOL:
      value.setBoolVal(false);
      break;
    case HATAttr::STRING:
      value.setStringVal(std::string());
      break;
    default:
      value.setStringList(std::vector<std::string>());
      break;
  }
  return value;
}

}  // namespace

// One default per kind, made on first use; list cells and the kinds this class does not
// use share the empty list.
HATAttr const& DefaultedAttr::defaultOf(HATAttr::Kind kind) {
  static HATAttr const defaults[] = {makeDefault(HATAttr::BOOL), makeDefault(HATAttr::INT),
                                     makeDefault(HATAttr::DOUBLE), makeDefault(HATAttr::STRING)};
  static HATAttr const list = makeDefault(HATAttr::STRING_LIST);
  return kind >= HATAttr::BOOL && kind <= HATAttr::STRING ? defaults[kind] : list;
}

// A kind this class does not use makes a list cell, as its default is the empty list.
DefaultedAttr::DefaultedAttr(HATAttr::Kind kind) : m_attr(defaultOf(kind)), m_ownKind(m_attr.getKind()) {
  refreshCaches();
  m_attr.setStateFlag(HATAttr::STATE_DEFAULT);
}

void DefaultedAttr::reset() {
  m_attr = defaultOf(m_ownKind);
  refreshCaches();
  m_attr.setStateFlag(HATAttr::STATE_DEFAULT);
}

void DefaultedAttr::setBool(bool value) {
  m_attr.setBoolVal(value);
  updateDefaultFlag();
}

void DefaultedAttr::setInt(int value) {
  m_attr.setIntVal(value);
  updateDefaultFlag();
}

void DefaultedAttr::setDouble(double value) {
  m_attr.setDoubleVal(value);
  updateDefaultFlag();
}

void DefaultedAttr::setString(std::string const& value) {
  m_attr.setStringVal(value);
  updateDefaultFlag();
}

void DefaultedAttr::setStringList(std::vector<std::string> const& value) {
  m_attr.setStringList(value);
  updateDefaultFlag();
}

// Compares by the cell's own kind, so a cell is unset whenever its value equals the default.
void DefaultedAttr::updateDefaultFlag() {
  refreshCaches();
  HATAttr const& byDefault = defaultOf(m_ownKind);
  bool isDefault = false;
  switch (m_ownKind) {
    case HATAttr::BOOL:
      isDefault = m_attr.getBoolVal() == byDefault.getBoolVal();
      break;
    case HATAttr::INT:
      isDefault = m_attr.getIntVal() == byDefault.getIntVal();
      break;
    case HATAttr::DOUBLE:
      isDefault = m_attr.getDoubleVal() == byDefault.getDoubleVal();
      break;
    case HATAttr::STRING:
      isDefault = m_string == byDefault.getStringVal();
      break;
    default:
      isDefault = m_list == byDefault.getStringList();
      break;
  }
  if (isDefault) {
    m_attr.setStateFlag(HATAttr::STATE_DEFAULT);
  } else {
    m_attr.clearStateFlag(HATAttr::STATE_DEFAULT);
  }
}

void DefaultedAttr::refreshCaches() {
  if (m_ownKind == HATAttr::STRING) {
    m_string = m_attr.getStringVal();
  } else if (m_ownKind == HATAttr::STRING_LIST) {
    m_list = m_attr.getStringList();
  }
}

}  // namespace constraints
}  // namespace kpe
