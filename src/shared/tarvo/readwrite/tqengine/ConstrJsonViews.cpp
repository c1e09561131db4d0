#include "ConstrJsonViews.h"

#include "ConstrDocumentKeys.h"
#include "ConstrPlaceText.h"
#include "JsonMembers.h"

namespace json {

namespace {

using kpe::constraints::ConstrPlaceText;
typedef kpe::constraints::ConstrDocumentKeys Keys;
using kpe::constraints::PhysicalSpec;

std::string textOf(Value const& value) {
  return std::string(value.GetString(), value.GetStringLength());
}

void applyPlace(ConstrPlaceText::Place const& place, PhysicalSpec& spec) {
  if (!place.name.empty()) {
    spec.setName(place.name);
  } else if (!place.hasSecond) {
    spec.setColumn(place.column);
  } else if (spec.isShim()) {
    spec.setColumn(place.column);
    spec.setChannel(place.second);
  } else {
    spec.setXY(place.column, place.second);
  }
}

// Reads an integer, a pair of integers, or a place text into `spec`; returns false when a
// place text had unbalanced parentheses.
bool readPlace(Value const* value, PhysicalSpec& spec) {
  if (value == nullptr) return true;
  if (value->IsInt()) {
    spec.setColumn(value->GetInt());
    return true;
  }
  if (value->IsString()) {
    ConstrPlaceText::Place const place = ConstrPlaceText::parsePlace(textOf(*value));
    applyPlace(place, spec);
    return place.balanced;
  }
  JIntPair const pair(value);
  if (pair.isValid()) {
    ConstrPlaceText::Place place;
    place.column = pair.first();
    place.second = pair.second();
    place.hasSecond = true;
    applyPlace(place, spec);
  }
  return true;
}

bool readPlace(std::string const& text, PhysicalSpec& spec) {
  ConstrPlaceText::Place const place = ConstrPlaceText::parsePlace(text);
  applyPlace(place, spec);
  return place.balanced;
}

}  // namespace

JBaseValue::JBaseValue(Value const& object, char const* key) : m_value(tarvo::jsonio::JsonMembers::find(object, key)) {}

JBaseValue::~JBaseValue() = default;

bool JBaseValue::isValid() const {
  return m_value != nullptr && !m_value->IsNull();
}

bool JSimpleValue::isValid() const {
  return m_value != nullptr && (m_value->IsBool() || m_value->IsNumber() || m_value->IsString());
}

bool JBool::isValid() const {
  return m_value != nullptr && m_value->IsBool();
}

bool JBool::get() const {
  return m_value != nullptr && m_value->IsTrue();
}

bool JInt::isValid() const {
  return m_value != nullptr && m_value->IsInt();
}

int JInt::get(int fallback) const {
  return isValid() ? m_value->GetInt() : fallback;
}

bool JString::isValid() const {
  return m_value != nullptr && m_value->IsString();
}

std::string JString::get() const {
  return isValid() ? textOf(*m_value) : std::string();
}

bool JBaseArray::isValid() const {
  return m_value != nullptr && m_value->IsArray();
}

unsigned JBaseArray::size() const {
  return isValid() ? m_value->Size() : 0;
}

std::vector<std::string> JStringArray::get() const {
  std::vector<std::string> strings;
  for (unsigned i = 0; i < size(); ++i)
    if (at(i).IsString()) strings.push_back(textOf(at(i)));
  return strings;
}

std::vector<JObjectArrayWithProperties::Item> JObjectArrayWithProperties::get() const {
  std::vector<Item> items;
  for (unsigned i = 0; i < size(); ++i) {
    Value const& element = at(i);
    if (element.IsString()) {
      items.push_back({textOf(element), false});
    } else if (element.IsObject() && element.MemberCount() > 0) {
      Value::ConstMemberIterator const member = element.MemberBegin();
      items.push_back({textOf(member->name), JBool(member->value, Keys::issoft).get()});
    }
  }
  return items;
}

bool JBasePair::isValid() const {
  return m_value != nullptr && m_value->IsArray() && m_value->Size() == 2;
}

Value const* JBasePair::firstValue() const {
  return JBasePair::isValid() ? &(*m_value)[0] : nullptr;
}

Value const* JBasePair::secondValue() const {
  return JBasePair::isValid() ? &(*m_value)[1] : nullptr;
}

bool JIntPair::isValid() const {
  return JBasePair::isValid() && (*m_value)[0].IsInt() && (*m_value)[1].IsInt();
}

int JIntPair::first() const {
  return isValid() ? (*m_value)[0].GetInt() : -1;
}

int JIntPair::second() const {
  return isValid() ? (*m_value)[1].GetInt() : -1;
}

bool JSrcInfoValue::isValid() const {
  return m_value != nullptr && !file().empty();
}

std::string JSrcInfoValue::file() const {
  return m_value == nullptr ? std::string() : JString(*m_value, Keys::file).get();
}

int JSrcInfoValue::line() const {
  return m_value == nullptr ? 0 : JInt(*m_value, Keys::line).get(0);
}

int JSrcInfoValue::column() const {
  return m_value == nullptr ? 0 : JInt(*m_value, Keys::column).get(0);
}

JTileValue::JTileValue(Value const* value) : JBaseValue(value) {
  m_balanced = readPlace(value, m_spec);
}

JTileValue::JTileValue(std::string const& text) : JBaseValue(nullptr) {
  m_balanced = readPlace(text, m_spec);
}

bool JTileValue::isValid() const {
  return m_spec.isSpecified();
}

JShimValue::JShimValue(Value const* value) : JBaseValue(value) {
  m_balanced = readPlace(value, m_spec);
}

JShimValue::JShimValue(std::string const& text) : JBaseValue(nullptr) {
  m_balanced = readPlace(text, m_spec);
}

bool JShimValue::isValid() const {
  return m_spec.isSpecified();
}

JMemValue::JMemValue(Value const* value) : JBaseValue(value) {
  m_balanced = readPlace(value, m_spec);
}

JMemValue::JMemValue(std::string const& text) : JBaseValue(nullptr) {
  m_balanced = readPlace(text, m_spec);
}

bool JMemValue::isValid() const {
  return m_spec.isSpecified();
}

}  // namespace json
