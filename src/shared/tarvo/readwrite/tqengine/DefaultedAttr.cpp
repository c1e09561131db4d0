#include "DefaultedAttr.h"

#include <cstring>

namespace kpe {
namespace constraints {

namespace {

int const kIntDefault = -1;
double const kDoubleDefault = -1.0;

}  // namespace

// What a HATAttr keeps apart: the last string and the last list set, whatever the kind now
// is. `shown` is what getString hands out (the value as text after the last change);
// a list cell hands out `list` itself. `made` says whether either was handed out by
// reference yet, and so must stay where it is.
struct DefaultedAttr::Texts {
  std::string string;
  std::vector<std::string> list;
  std::string shown;
  bool made = false;
};

// A kind this class does not use makes a list cell, as its default is the empty list.
DefaultedAttr::DefaultedAttr(HATAttr::Kind kind) : m_int(0) {
  switch (kind) {
    case HATAttr::INT:
      m_int = kIntDefault;
      break;
    case HATAttr::DOUBLE:
      m_double = kDoubleDefault;
      break;
    case HATAttr::BOOL:
    case HATAttr::STRING:
      break;
    default:
      kind = HATAttr::STRING_LIST;
      break;
  }
  m_kind = static_cast<std::uint8_t>(kind);
  m_ownKind = m_kind;
}

DefaultedAttr::DefaultedAttr(DefaultedAttr const& other)
    : m_int(0),
      m_texts(other.m_texts ? std::make_unique<Texts>(*other.m_texts) : nullptr),
      m_kind(other.m_kind),
      m_ownKind(other.m_ownKind),
      m_default(other.m_default) {
  std::memcpy(&m_int, &other.m_int, sizeof m_int);
}

// Texts handed out are assigned in place and never dropped, so that what getString or
// getStringList handed out stays valid, as it would for a member.
DefaultedAttr& DefaultedAttr::operator=(DefaultedAttr const& other) {
  if (this == &other) return *this;
  bool const made = (m_texts && m_texts->made) || (other.m_texts && other.m_texts->made);
  std::memcpy(&m_int, &other.m_int, sizeof m_int);
  m_kind = other.m_kind;
  m_ownKind = other.m_ownKind;
  m_default = other.m_default;
  if (other.m_texts)
    texts() = *other.m_texts;
  else if (m_texts)
    *m_texts = Texts();
  if (m_texts) m_texts->made = made;
  return *this;
}

DefaultedAttr::~DefaultedAttr() = default;

HATAttr DefaultedAttr::held() const {
  HATAttr attr(static_cast<HATAttr::Kind>(m_kind));
  switch (m_kind) {
    case HATAttr::BOOL:
      attr.setBoolVal(m_int != 0);
      break;
    case HATAttr::INT:
      attr.setIntVal(static_cast<int>(m_int));
      break;
    case HATAttr::DOUBLE:
      attr.setDoubleVal(m_double);
      break;
    case HATAttr::STRING:
      if (m_texts) attr.setStringVal(m_texts->string);
      break;
    default:
      if (m_texts) attr.setStringList(m_texts->list);
      break;
  }
  return attr;
}

DefaultedAttr::Texts& DefaultedAttr::texts() {
  if (!m_texts) m_texts = std::make_unique<Texts>();
  return *m_texts;
}

std::string const& DefaultedAttr::getString() const {
  static std::string const none;
  return m_ownKind == HATAttr::STRING && m_texts && m_texts->made ? m_texts->shown : none;
}

std::vector<std::string> const& DefaultedAttr::getStringList() const {
  static std::vector<std::string> const none;
  return m_ownKind == HATAttr::STRING_LIST && m_texts && m_texts->made ? m_texts->list : none;
}

// Back to the default of the cell's own kind, which holds no string and no list.
void DefaultedAttr::reset() {
  m_int = 0;
  if (m_ownKind == HATAttr::INT) m_int = kIntDefault;
  if (m_ownKind == HATAttr::DOUBLE) m_double = kDoubleDefault;
  m_kind = m_ownKind;
  if (m_texts) {
    m_texts->string.clear();
    m_texts->list.clear();
  }
  refreshShown();
  m_default = true;
}

void DefaultedAttr::setBool(bool value) {
  m_kind = HATAttr::BOOL;
  m_int = value ? 1 : 0;
  updateDefaultFlag();
}

void DefaultedAttr::setInt(int value) {
  m_kind = HATAttr::INT;
  m_int = value;
  updateDefaultFlag();
}

void DefaultedAttr::setDouble(double value) {
  m_kind = HATAttr::DOUBLE;
  m_double = value;
  updateDefaultFlag();
}

void DefaultedAttr::setString(std::string const& value) {
  m_kind = HATAttr::STRING;
  if (m_texts || !value.empty()) texts().string = value;
  updateDefaultFlag();
}

void DefaultedAttr::setStringList(std::vector<std::string> const& value) {
  m_kind = HATAttr::STRING_LIST;
  if (m_texts || !value.empty()) texts().list = value;
  updateDefaultFlag();
}

// Compares by the cell's own kind, so a cell is unset whenever its value equals the default
// of that kind.
void DefaultedAttr::updateDefaultFlag() {
  refreshShown();
  switch (m_ownKind) {
    case HATAttr::BOOL:
      m_default = !getBool();
      break;
    case HATAttr::INT:
      m_default = getInt() == kIntDefault;
      break;
    case HATAttr::DOUBLE:
      m_default = getDouble() == kDoubleDefault;
      break;
    case HATAttr::STRING:
      m_default = getString().empty();
      break;
    default:
      m_default = getStringList().empty();
      break;
  }
}

// A string cell shows its value as text; a list cell shows its last list. An empty value
// needs nothing made for it: what is not made reads as empty.
void DefaultedAttr::refreshShown() {
  if (m_ownKind == HATAttr::STRING) {
    std::string value = toString();
    if ((m_texts && m_texts->made) || !value.empty()) {
      texts().shown = std::move(value);
      m_texts->made = true;
    }
  } else if (m_ownKind == HATAttr::STRING_LIST && m_texts && !m_texts->list.empty()) {
    m_texts->made = true;
  }
}

}  // namespace constraints
}  // namespace kpe
