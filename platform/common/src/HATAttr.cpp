#include "HATAttr.h"

#include <cstdlib>
#include <cstring>
#include <sstream>

#include "HSTStrUtils.h"

namespace {

template <class T>
std::unique_ptr<T> copyOf(std::unique_ptr<T> const& held) {
  return held ? std::make_unique<T>(*held) : nullptr;
}

// Keeps `held` null for an empty value, and reuses what it holds.
template <class T>
void assign(std::unique_ptr<T>& held, T const& value) {
  if (held)
    *held = value;
  else if (!value.empty())
    held = std::make_unique<T>(value);
}

}  // namespace

HATAttr::HATAttr(Kind kind) : m_kind(kind) {
  if (kind == DOUBLE)
    m_double = 0.0;
  else
    m_int = 0;
}

HATAttr::HATAttr(HATAttr const& other)
    : m_kind(other.m_kind), m_state(other.m_state), m_string(copyOf(other.m_string)), m_list(copyOf(other.m_list)) {
  std::memcpy(&m_int, &other.m_int, sizeof m_int);
}

HATAttr& HATAttr::operator=(HATAttr const& other) {
  if (this == &other) return *this;
  m_kind = other.m_kind;
  m_state = other.m_state;
  std::memcpy(&m_int, &other.m_int, sizeof m_int);
  m_string = copyOf(other.m_string);
  m_list = copyOf(other.m_list);
  return *this;
}

HATAttr::~HATAttr() = default;

std::string const& HATAttr::text() const {
  static std::string const none;
  return m_string ? *m_string : none;
}

std::vector<std::string> const& HATAttr::getStringList() const {
  static std::vector<std::string> const none;
  return m_list ? *m_list : none;
}

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
  assign(m_string, value);
}

void HATAttr::setULongVal(unsigned long long value) {
  m_kind = ULONG;
  m_int = static_cast<long long>(value);
}

void HATAttr::setStringList(std::vector<std::string> const& value) {
  m_kind = STRING_LIST;
  assign(m_list, value);
}

bool HATAttr::getBoolVal() const {
  switch (m_kind) {
    case DOUBLE: return m_double != 0.0;
    case STRING: return text() == "true" || text() == "1";
    case STRING_LIST: return !getStringList().empty();
    default: return m_int != 0;
  }
}

int HATAttr::getIntVal() const {
  switch (m_kind) {
    case DOUBLE: return static_cast<int>(m_double);
    case STRING: return std::atoi(text().c_str());
    case STRING_LIST: return static_cast<int>(getStringList().size());
    default: return static_cast<int>(m_int);
  }
}

double HATAttr::getDoubleVal() const {
  switch (m_kind) {
    case DOUBLE: return m_double;
    case STRING: return std::atof(text().c_str());
    case STRING_LIST: return static_cast<double>(getStringList().size());
    case ULONG: return static_cast<double>(static_cast<unsigned long long>(m_int));
    default: return static_cast<double>(m_int);
  }
}

unsigned long long HATAttr::getULongVal() const {
  switch (m_kind) {
    case DOUBLE: return static_cast<unsigned long long>(m_double);
    case STRING: return std::strtoull(text().c_str(), nullptr, 10);
    case STRING_LIST: return getStringList().size();
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
    case STRING: return text();
    case STRING_LIST: return HSTStrUtils::join(getStringList(), " ");
  }
  return std::string();
}

bool HATAttr::operator==(HATAttr const& other) const {
  if (m_kind != other.m_kind || m_state != other.m_state) return false;
  switch (m_kind) {
    case DOUBLE: return m_double == other.m_double;
    case STRING: return text() == other.text();
    case STRING_LIST: return getStringList() == other.getStringList();
    default: return m_int == other.m_int;
  }
}
