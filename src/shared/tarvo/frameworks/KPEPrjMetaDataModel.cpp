#include "KPEPrjMetaDataModel.h"

#include <cstdint>
#include <istream>
#include <limits>
#include <string_view>

#include <rapidjson/prettywriter.h>

#include "../readwrite/JsonEventFrame.h"
#include "HCRapidJsonReadWriteUtils.h"
#include "JsonDocumentFrame.h"
#include "JsonOutputStream.h"

namespace Tarvo {
namespace Frameworks {

std::string const KPE_PL_INTF_ID = "KPE_PL_INTF_ID";
std::string const KPE_PL_INTF_ID_STR = "KPE_PL_INTF_ID_STR";

namespace {

typedef HCRapidJsonReadWriteUtils Json;

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

// The properties of one document, collected event by event. Each value's type is decided as
// the kind tests of a document tree decide it, in the order String, Double, Integer, Boolean,
// Unsigned long, String array; only the first "name" and "value" of an item count, only the
// first "MetaData" of the document, and a value of no such type drops its item.
class MetaDataEvents {
 public:
  typedef std::map<std::string, boost::any> Properties;

  Properties& read() { return m_read; }

  void Null() { scalar(boost::any()); }
  void Bool(bool b) { scalar(b); }
  void Int(int i) { scalar(i); }
  // The parser gives Uint below 2^32: the part that fits an int reads as an Integer.
  void Uint(unsigned u) {
    if (u <= static_cast<unsigned>(std::numeric_limits<int>::max()))
      scalar(static_cast<int>(u));
    else
      scalar(static_cast<unsigned long long>(u));
  }
  // Only below the int range: neither an Integer nor an Unsigned long.
  void Int64(std::int64_t) { scalar(boost::any()); }
  void Uint64(std::uint64_t u) { scalar(static_cast<unsigned long long>(u)); }
  void Double(double d) { scalar(d); }
  void String(char const* s, rapidjson::SizeType n, bool) {
    if (m_depth == kInValueArray && m_collecting) {
      m_strings.emplace_back(s, n);
      return;
    }
    if (m_depth == kInItem && m_slot == Slot::Name) {
      m_name.assign(s, n);
      m_slot = Slot::None;
      return;
    }
    scalar(std::string(s, n));
  }
  void Key(char const* s, rapidjson::SizeType n, bool) {
    std::string_view const key(s, n);
    if (m_depth == kInRoot) {
      m_nextIsItems = m_rootIsObject && !m_metaDataSeen && key == kMetaData;
      if (m_nextIsItems) m_metaDataSeen = true;
    } else if (m_depth == kInItem && m_inItem) {
      m_slot = Slot::None;
      if (key == kName && !m_nameSeen) {
        m_nameSeen = true;
        m_slot = Slot::Name;
      } else if (key == kValue && !m_valueSeen) {
        m_valueSeen = true;
        m_slot = Slot::Value;
      }
    }
  }
  void StartObject() {
    if (m_depth == 0) m_rootIsObject = true;
    if (m_depth == kInItems && m_inItems) {
      m_inItem = true;
      m_nameSeen = m_valueSeen = false;
      m_name.clear();
      m_value = boost::any();
    }
    container();
    ++m_depth;
  }
  void EndObject(rapidjson::SizeType) {
    --m_depth;
    if (m_depth == kInItems && m_inItem) {
      m_inItem = false;
      if (!m_value.empty()) m_read.insert_or_assign(m_read.end(), std::move(m_name), std::move(m_value));
    }
  }
  void StartArray() {
    if (m_depth == kInRoot && m_nextIsItems) m_inItems = true;
    bool const values = m_depth == kInItem && m_inItem && m_slot == Slot::Value;
    container();
    if (values) {
      m_collecting = true;
      m_strings.clear();
    }
    ++m_depth;
  }
  void EndArray(rapidjson::SizeType) {
    --m_depth;
    if (m_depth == kInRoot) m_inItems = false;
    if (m_depth == kInItem && m_collecting) {
      m_collecting = false;
      m_value = std::move(m_strings);
      m_strings = std::vector<std::string>();
    }
  }

 private:
  enum class Slot { None, Name, Value };
  // Depths of the containers open around an event.
  static constexpr unsigned kInRoot = 1;
  static constexpr unsigned kInItems = 2;
  static constexpr unsigned kInItem = 3;
  static constexpr unsigned kInValueArray = 4;

  // A value that is no string or array of strings: a name of another type reads as empty.
  void scalar(boost::any value) {
    if (m_depth == kInRoot) m_nextIsItems = false;
    if (m_depth != kInItem || !m_inItem) return;
    if (m_slot == Slot::Name) m_name.clear();
    if (m_slot == Slot::Value) m_value = std::move(value);
    m_slot = Slot::None;
  }
  // An object or array met where a name or value was due: both read as nothing.
  void container() { scalar(boost::any()); }

  Properties m_read;
  unsigned m_depth = 0;
  bool m_rootIsObject = false;
  bool m_metaDataSeen = false;
  bool m_nextIsItems = false;
  bool m_inItems = false;
  bool m_inItem = false;
  bool m_nameSeen = false;
  bool m_valueSeen = false;
  bool m_collecting = false;
  Slot m_slot = Slot::None;
  std::string m_name;
  boost::any m_value;
  std::vector<std::string> m_strings;
};

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

// Event by event: a document tree of the text would cost more than the store it fills. The
// store is touched only once the whole text parsed.
void KPEPrjMetaDataModel::readFromJSONStream(std::string const& fileName, std::istream& in) {
  if (in.fail()) Json::errorReadingJsonFile(fileName);
  MetaDataEvents events;
  JsonEventFrame::parse(in, fileName, events);
  MetaDataEvents::Properties& read = events.read();
  if (m_properties.empty()) {
    m_properties.swap(read);
    return;
  }
  // The document's value wins over the store's, moved over node by node.
  while (!read.empty()) {
    auto placed = m_properties.insert(read.extract(read.begin()));
    if (!placed.inserted) placed.position->second = std::move(placed.node.mapped());
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
