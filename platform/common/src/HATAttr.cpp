#include "HATAttr.h"

#include <cstdlib>
#include <sstream>

#include "HSTStrUtils.h"

HATAttr::HATAttr(Kind kind) : m_kind(kind) {}

void HATAttr::setBoolVal(bool value) {
  m_kind = BOOL;
  m_int = value ? 1 : 0;
}

void HATAttr::setIntVal(int value) {
  m_kind = INT;
  m_int = value;
}

void HATAttr::setDoubleVal(double value) {
  m_kind = DOUBLE;
  m_double = value;
}

void HATAttr::setStringVal(std::string const& value) {
  m_kind = STRING;
  m_string = value;
}

void HATAttr::setULongVal(unsigned long long value) {
  m_kind = ULONG;
  m_int = static_cast<long long>(value);
}

void HATAttr::setStringList(std::vector<std::string> const& value) {
  m_kind = STRING_LIST;
  m_list = value;
}

bool HATAttr::getBoolVal() const {
  switch (m_kind) {
    case DOUBLE: return m_double != 0.0;
    case STRING: return m_string == "true" || m_string == "1";
    case STRING_LIST: return !m_list.empty();
    default: return m_int != 0;
  }
}

int HATAttr::getIntVal() const {
  switch (m_kind) {
    case DOUBLE: return static_cast<int>(m_double);
    case STRING: return std::atoi(m_string.c_str());
    case STRING_LIST: return static_cast<int>(m_list.size());
    default: return static_cast<int>(m_int);
  }
}

double HATAttr::getDoubleVal() const {
  switch (m_kind) {
    case DOUBLE: return m_double;
    case STRING: return std::atof(m_string.c_str());
    case STRING_LIST: return static_cast<double>(m_list.size());
    case ULONG: return static_cast<double>(static_cast<unsigned long long>(m_int));
    default: return static_cast<double>(m_int);
  }
}

unsigned long long HATAttr::getULongVal() const {
  switch (m_kind) {
    case DOUBLE: return static_cast<unsigned long long>(m_double);
    case STRING: return std::strtoull(m_string.c_str(), nullptr, 10);
    case STRING_LIST: return m_list.size();
    default: return static_cast<unsigned long long>(m_int);
  }
}

std::string HATAttr::getStringVal() const {
  switch (m_kind) {
    case BOOL: return m_int != 0 ? "true" : "false";
    case INT: return std::to_string(m_int);
    case ULONG: return std::to_string(static_cast<unsigned long long>(m_int));
    case DOUBLE: {
      std::ostringstream text;
      text << m_double;
      return text.str();
    }
    case STRING: return m_string;
    case STRING_LIST: return HSTStrUtils::join(m_list, " ");
  }
  return std::string();
}

bool HATAttr::operator==(HATAttr const& other) const {
  if (m_kind != other.m_kind || m_state != other.m_state) return false;
  switch (m_kind) {
    case DOUBLE: return m_double == other.m_double;
    case STRING: return m_string == other.m_string;
    case STRING_LIST: return m_list == other.m_list;
    default: return m_int == other.m_int;
  }
}
