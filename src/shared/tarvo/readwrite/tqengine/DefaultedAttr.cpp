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

DefaultedAttr::DefaultedAttr(HATAttr::Kind kind) : m_attr(makeDefault(kind)), m_default(m_attr) {
  refreshCaches();
  m_attr.setStateFlag(HATAttr::STATE_DEFAULT);
}

void DefaultedAttr::reset() {
  m_attr = m_default;
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
  bool isDefault = false;
  switch (m_default.getKind()) {
    case HATAttr::BOOL:
      isDefault = m_attr.getBoolVal() == m_default.getBoolVal();
      break;
    case HATAttr::INT:
      isDefault = m_attr.getIntVal() == m_default.getIntVal();
      break;
    case HATAttr::DOUBLE:
      isDefault = m_attr.getDoubleVal() == m_default.getDoubleVal();
      break;
    case HATAttr::STRING:
      isDefault = m_string == m_default.getStringVal();
      break;
    default:
      isDefault = m_list == m_default.getStringList();
      break;
  }
  if (isDefault) {
    m_attr.setStateFlag(HATAttr::STATE_DEFAULT);
  } else {
    m_attr.clearStateFlag(HATAttr::STATE_DEFAULT);
  }
}

void DefaultedAttr::refreshCaches() {
  if (m_default.getKind() == HATAttr::STRING) {
    m_string = m_attr.getStringVal();
  } else if (m_default.getKind() == HATAttr::STRING_LIST) {
    m_list = m_attr.getStringList();
  }
}

}  // namespace constraints
}  // namespace kpe
