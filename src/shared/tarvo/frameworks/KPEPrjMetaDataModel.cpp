#include "KPEPrjMetaDataModel.h"

#include <istream>

#include <rapidjson/prettywriter.h>

#include "HCRapidJsonReadWriteUtils.h"
#include "JsonDocumentFrame.h"
#include "JsonOutputStream.h"

namespace Tarvo {
namespace Frameworks {

std::string const KPE_PL_INTF_ID = "KPE_PL_INTF_ID";
std::string const KPE_PL_INTF_ID_STR = "KPE_PL_INTF_ID_STR";

namespace {

typedef HCRapidJsonReadWriteUtils Json;
typedef JsonDocumentFrame::Value Value;

char const* const kMetaData = "MetaData";
char const* const kName = "name";
char const* const kValue = "value";

typedef rapidjson::PrettyWriter<tarvo::jsonio::JsonOutputStream> Writer;

void writeString(Writer& writer, std::string const& text) {
  writer.String(text.data(), static_cast<rapidjson::SizeType>(text.size()));
}

// The "value" member of one property, tested in the type order Boolean, Integer, Unsigned
// long, String, Double, String array.
void writeValue(Writer& writer, boost::any const& value) {
  writer.Key(kValue);
  if (bool const* b = boost::any_cast<bool>(&value)) {
    writer.Bool(*b);
  } else if (int const* i = boost::any_cast<int>(&value)) {
    writer.Int(*i);
  } else if (unsigned long long const* u = boost::any_cast<unsigned long long>(&value)) {
    writer.Uint64(*u);
  } else if (std::string const* s = boost::any_cast<std::string>(&value)) {
    writeString(writer, *s);
  } else if (double const* d = boost::any_cast<double>(&value)) {
    writer.Double(*d);
  } else if (auto const* list = boost::any_cast<std::vector<std::string>>(&value)) {
    writer.StartArray();
    for (std::string const& item : *list)
      writeString(writer, item);
    writer.EndArray();
  }
}

// The JSON kind of "value" decides the type, tested in this order; no match drops the item.
bool readValue(Value const& item, boost::any& value) {
  if (Json::IsStringProperty(item, kValue))
    value = Json::GetStringProperty(item, kValue);
  else if (Json::IsDoubleProperty(item, kValue))
    value = Json::GetDoubleProperty(item, kValue);
  else if (Json::IsIntegrProperty(item, kValue))
    value = Json::GetIntegrProperty(item, kValue);
  else if (Json::IsBooleanProperty(item, kValue))
    value = Json::GetBooleanProperty(item, kValue);
  else if (Json::IsULongProperty(item, kValue))
    value = Json::GetULongProperty(item, kValue);
  else if (Json::IsArrayProperty(item, kValue))
    value = Json::GetStringArrayProperty(item, kValue);
  else
    return false;
  return true;
}

}  // namespace

template <typename T>
T const* KPEPrjMetaDataModel::find(std::string const& name) const {
  auto found = m_properties.find(name);
  return found == m_properties.end() ? nullptr : boost::any_cast<T>(&found->second);
}

void KPEPrjMetaDataModel::addBooleanProperty(std::string const& name, bool value) {
  m_properties[name] = value;
}

void KPEPrjMetaDataModel::addDoubleProperty(std::string const& name, double value) {
  m_properties[name] = value;
}

void KPEPrjMetaDataModel::addIntegrProperty(std::string const& name, int value) {
  m_properties[name] = value;
}

void KPEPrjMetaDataModel::addStringArrayProperty(std::string const& name, std::vector<std::string> const& value) {
  m_properties[name] = value;
}

void KPEPrjMetaDataModel::addStringProperty(std::string const& name, std::string const& value) {
  m_properties[name] = value;
}

void KPEPrjMetaDataModel::addULongProperty(std::string const& name, unsigned long long value) {
  m_properties[name] = value;
}

bool KPEPrjMetaDataModel::getBooleanProperty(std::string const& name) const {
  int const* value = find<int>(name);
  return value != nullptr && *value != 0;
}

double KPEPrjMetaDataModel::getDoubleProperty(std::string const& name) const {
  double const* value = find<double>(name);
  return value != nullptr ? *value : 0.0;
}

int KPEPrjMetaDataModel::getIntegrProperty(std::string const& name) const {
  int const* value = find<int>(name);
  return value != nullptr ? *value : 0;
}

unsigned long long KPEPrjMetaDataModel::getULongProperty(std::string const& name) const {
  unsigned long long const* value = find<unsigned long long>(name);
  return value != nullptr ? *value : 0;
}

std::string KPEPrjMetaDataModel::getStringProperty(std::string const& name) {
  std::string const* value = find<std::string>(name);
  return value != nullptr ? *value : std::string();
}

std::vector<std::string> KPEPrjMetaDataModel::getStringArrayProperty(std::string const& name) {
  auto const* value = find<std::vector<std::string>>(name);
  return value != nullptr ? *value : std::vector<std::string>();
}

void KPEPrjMetaDataModel::removeProperty(std::string const& name) {
  m_properties.erase(name);
}

void KPEPrjMetaDataModel::clear() {
  m_properties.clear();
}

bool KPEPrjMetaDataModel::isEmpty() const {
  return m_properties.empty();
}

bool KPEPrjMetaDataModel::copy(KPEPrjMetaDataModel const& other) {
  if (&other != this) m_properties = other.m_properties;
  return true;
}

void KPEPrjMetaDataModel::setKPEPLIntfID(unsigned int id) {
  removeProperty(KPE_PL_INTF_ID);
  addIntegrProperty(KPE_PL_INTF_ID, static_cast<int>(id));
}

unsigned int KPEPrjMetaDataModel::getKPEPLIntfID() const {
  return static_cast<unsigned int>(getIntegrProperty(KPE_PL_INTF_ID));
}

void KPEPrjMetaDataModel::setKPEPLIntfIDString(std::string const& id) {
  removeProperty(KPE_PL_INTF_ID_STR);
  addStringProperty(KPE_PL_INTF_ID_STR, id);
}

std::string KPEPrjMetaDataModel::getKPEPLIntfIDString() {
  return getStringProperty(KPE_PL_INTF_ID_STR);
}

// Written straight from the store: the text is what a document built from it would give,
// without building one.
void KPEPrjMetaDataModel::writeToJSONStream(std::ostream& out) const {
  tarvo::jsonio::JsonOutputStream stream(out);
  Writer writer(stream);
  writer.SetIndent(' ', 2);
  writer.StartObject();
  writer.Key(kMetaData);
  writer.StartArray();
  for (auto const& property : m_properties) {
    writer.StartObject();
    writer.Key(kName);
    writeString(writer, property.first);
    writeValue(writer, property.second);
    writer.EndObject();
  }
  writer.EndArray();
  writer.EndObject();
}

void KPEPrjMetaDataModel::writeToJSONFile(std::string const& fileName) const {
  JsonDocumentFrame::writeFile(fileName, [this](std::ostream& out) {
    writeToJSONStream(out);
    return true;
  });
}

void KPEPrjMetaDataModel::readFromJSONStream(std::string const& fileName, std::istream& in) {
  if (in.fail()) Json::errorReadingJsonFile(fileName);
  JsonDocumentFrame::Document doc;
  JsonDocumentFrame::parse(in, fileName, doc);
  if (!doc.IsObject()) return;
  Value::ConstMemberIterator const items = doc.FindMember(kMetaData);
  if (items == doc.MemberEnd() || !items->value.IsArray()) return;
  for (Value const& item : items->value.GetArray()) {
    boost::any value;
    // Documents list names in ascending order, so the end is almost always the right place.
    if (readValue(item, value))
      m_properties.insert_or_assign(m_properties.end(), Json::GetStringProperty(item, kName), std::move(value));
  }
}

void KPEPrjMetaDataModel::readFromJSONFile(std::string const& fileName) {
  JsonDocumentFrame::readFile(fileName, JsonDocumentFrame::Opener::PlainFile,
                              [this](std::istream& in, std::string const& name) {
                                readFromJSONStream(name, in);
                                return true;
                              });
}

}  // namespace Frameworks
}  // namespace Tarvo
