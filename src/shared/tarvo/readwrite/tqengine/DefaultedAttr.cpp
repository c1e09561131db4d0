#include "DefaultedAttr.h"

namespace kpe {
namespace constraints {

namespace {

int const kIntDefault = -1;
double const kDoubleDefault = -1.0;

HATAttr makeDefault(HATAttr::Kind kind) {
  HATAttr value(kind);
  switch (kind) {
    case HATAttr::INT:
      value.setIntVal(kIntDefault);
      break;
    case HATAttr::DOUBLE:
      value.setDoubleVal(kDoubleDefault);
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
DefaultedAttr::DefaultedAttr(HATAttr::Kind kind) : m_attr(makeDefault(kind)), m_ownKind(m_attr.getKind()) {
  m_attr.setStateFlag(HATAttr::STATE_DEFAULT);
}

DefaultedAttr::DefaultedAttr(DefaultedAttr const& other)
    : m_attr(other.m_attr),
      m_ownKind(other.m_ownKind),
      m_cache(other.m_cache ? std::make_unique<Cache>(*other.m_cache) : nullptr) {}

// A cache is assigned in place and never dropped, so that what getString or getStringList
// handed out stays valid, as it would for a member.
DefaultedAttr& DefaultedAttr::operator=(DefaultedAttr const& other) {
  if (this == &other) return *this;
  m_attr = other.m_attr;
  m_ownKind = other.m_ownKind;
  if (other.m_cache)
    cache() = *other.m_cache;
  else if (m_cache)
    *m_cache = emptyCache(m_ownKind);
  return *this;
}

DefaultedAttr::~DefaultedAttr() = default;

// The default of the kind: the empty string or the empty list.
DefaultedAttr::Cache DefaultedAttr::emptyCache(HATAttr::Kind ownKind) {
  if (ownKind == HATAttr::STRING) return Cache(std::in_place_type<std::string>);
  return Cache(std::in_place_type<std::vector<std::string>>);
}

// Only string and list cells ask for one.
DefaultedAttr::Cache& DefaultedAttr::cache() {
  if (!m_cache) m_cache = std::make_unique<Cache>(emptyCache(m_ownKind));
  return *m_cache;
}

std::string const& DefaultedAttr::getString() const {
  static std::string const none;
  return m_ownKind == HATAttr::STRING && m_cache ? std::get<std::string>(*m_cache) : none;
}

std::vector<std::string> const& DefaultedAttr::getStringList() const {
  static std::vector<std::string> const none;
  return m_ownKind == HATAttr::STRING_LIST && m_cache ? std::get<std::vector<std::string>>(*m_cache) : none;
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

// Compares by the cell's own kind, so a cell is unset whenever its value equals the default
// of that kind (the values makeDefault gives).
void DefaultedAttr::updateDefaultFlag() {
  refreshCaches();
  bool isDefault = false;
  switch (m_ownKind) {
    case HATAttr::BOOL:
      isDefault = !m_attr.getBoolVal();
      break;
    case HATAttr::INT:
      isDefault = m_attr.getIntVal() == kIntDefault;
      break;
    case HATAttr::DOUBLE:
      isDefault = m_attr.getDoubleVal() == kDoubleDefault;
      break;
    case HATAttr::STRING:
      isDefault = !m_cache || std::get<std::string>(*m_cache).empty();
      break;
    default:
      isDefault = !m_cache || std::get<std::vector<std::string>>(*m_cache).empty();
      break;
  }
  if (isDefault) {
    m_attr.setStateFlag(HATAttr::STATE_DEFAULT);
  } else {
    m_attr.clearStateFlag(HATAttr::STATE_DEFAULT);
  }
}

// An empty value needs no cache made for it: an absent cache reads as empty.
void DefaultedAttr::refreshCaches() {
  if (m_ownKind == HATAttr::STRING) {
    std::string value = m_attr.getStringVal();
    if (m_cache || !value.empty()) std::get<std::string>(cache()) = std::move(value);
  } else if (m_ownKind == HATAttr::STRING_LIST) {
    std::vector<std::string> const& value = m_attr.getStringList();
    if (m_cache || !value.empty()) std::get<std::vector<std::string>>(cache()) = value;
  }
}

}  // namespace constraints
}  // namespace kpe
