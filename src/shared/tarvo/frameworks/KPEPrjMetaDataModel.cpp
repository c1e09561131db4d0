#include "KPEPrjMetaDataModel.h"

#include <cstdint>
#include <istream>
#include <limits>
#include <string_view>
#include <variant>

#include <rapidjson/prettywriter.h>

#include "../readwrite/JsonEventFrame.h"
#include "HCRapidJsonReadWriteUtils.h"
#include "JsonDocumentFrame.h"
#include "JsonOutputStream.h"
#include "MetaDataPropertyTable.h"

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

void writeString(Writer& writer, std::string_view text) {
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

// Values as the table holds them.
void writeValue(Writer& writer, MetaDataPropertyTable::Value const& value) {
  typedef MetaDataPropertyTable Table;
  writer.Key(kValue);
  if (bool const* b = std::get_if<bool>(&value)) {
    writer.Bool(*b);
  } else if (int const* i = std::get_if<int>(&value)) {
    writer.Int(*i);
  } else if (unsigned long long const* u = std::get_if<unsigned long long>(&value)) {
    writer.Uint64(*u);
  } else if (Table::Text const* s = std::get_if<Table::Text>(&value)) {
    writeString(writer, s->view());
  } else if (double const* d = std::get_if<double>(&value)) {
    writer.Double(*d);
  } else if (Table::List const* list = std::get_if<Table::List>(&value)) {
    writer.StartArray();
    for (std::size_t i = 0; i < list->size(); ++i)
      writeString(writer, list->items()[i].view());
    writer.EndArray();
  }
}

// The properties of one document, collected event by event. Each value's type is decided as
// the kind tests of a document tree decide it, in the order String, Double, Integer, Boolean,
// Unsigned long, String array; only the first "name" and "value" of an item count, only the
// first "MetaData" of the document, and a value of no such type drops its item.
class MetaDataEvents {
 public:
  typedef MetaDataPropertyTable Table;

  std::unique_ptr<Table> read() {
    m_read->finish();
    return std::move(m_read);
  }

  void Null() { scalar(None()); }
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
  void Int64(std::int64_t) { scalar(None()); }
  void Uint64(std::uint64_t u) { scalar(static_cast<unsigned long long>(u)); }
  void Double(double d) { scalar(d); }
  void String(char const* s, rapidjson::SizeType n, bool) {
    if (m_depth == kInValueArray && m_collecting) {
      m_strings.push_back(m_read->store(s, n));
      return;
    }
    if (m_depth == kInItem && m_slot == Slot::Name) {
      m_name = m_read->store(s, n);
      m_slot = Slot::None;
      return;
    }
    // Only a value is kept: other texts of an item are not copied.
    bool const value = m_depth == kInItem && m_inItem && m_slot == Slot::Value;
    scalar(value ? Value(m_read->store(s, n)) : Value(None()));
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
      m_name = Table::Text();
      m_value = None();
    }
    container();
    ++m_depth;
  }
  void EndObject(rapidjson::SizeType) {
    --m_depth;
    if (m_depth == kInItems && m_inItem) {
      m_inItem = false;
      std::visit([this](auto const& value) { commit(value); }, m_value);
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
      m_value = m_read->store(m_strings);
    }
  }

 private:
  enum class Slot { None, Name, Value };
  // No value, or one of no type the store holds.
  struct None {};
  typedef std::variant<None, bool, int, unsigned long long, double, Table::Text, Table::List> Value;
  // Depths of the containers open around an event.
  static constexpr unsigned kInRoot = 1;
  static constexpr unsigned kInItems = 2;
  static constexpr unsigned kInItem = 3;
  static constexpr unsigned kInValueArray = 4;

  // A value that is no string or array of strings: a name of another type reads as empty.
  void scalar(Value const& value) {
    if (m_depth == kInRoot) m_nextIsItems = false;
    if (m_depth != kInItem || !m_inItem) return;
    if (m_slot == Slot::Name) m_name = Table::Text();
    if (m_slot == Slot::Value) m_value = value;
    m_slot = Slot::None;
  }
  // An object or array met where a name or value was due: both read as nothing.
  void container() { scalar(None()); }

  void commit(None) {}
  template <typename T>
  void commit(T const& value) {
    m_read->add(m_name, value);
  }

  std::unique_ptr<Table> m_read = std::make_unique<Table>();
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
  Table::Text m_name;
  Value m_value;
  std::vector<Table::Text> m_strings;
};

}  // namespace

KPEPrjMetaDataModel::KPEPrjMetaDataModel() = default;

KPEPrjMetaDataModel::~KPEPrjMetaDataModel() = default;

template <typename T>
T const* KPEPrjMetaDataModel::find(std::string const& name) const {
  auto found = m_properties.find(name);
  return found == m_properties.end() ? nullptr : boost::any_cast<T>(&found->second);
}

template <typename T>
T const* KPEPrjMetaDataModel::findRead(std::string const& name) const {
  MetaDataPropertyTable::Property const* found = m_read->find(name);
  return found == nullptr ? nullptr : std::get_if<T>(&found->value);
}

void KPEPrjMetaDataModel::own() {
  if (!m_read) return;
  getProperties();
  m_read.reset();
  m_made = false;
}

std::map<std::string, boost::any> const& KPEPrjMetaDataModel::getProperties() const {
  if (m_read) {
    std::lock_guard<std::mutex> const lock(m_making);
    if (!m_made) {
      for (MetaDataPropertyTable::Property const& property : m_read->properties())
        m_properties.emplace_hint(m_properties.end(), property.name.view(), m_read->toAny(property.value));
      m_made = true;
    }
  }
  return m_properties;
}

void KPEPrjMetaDataModel::addBooleanProperty(std::string const& name, bool value) {
  own();
  m_properties[name] = value;
}

void KPEPrjMetaDataModel::addDoubleProperty(std::string const& name, double value) {
  own();
  m_properties[name] = value;
}

void KPEPrjMetaDataModel::addIntegrProperty(std::string const& name, int value) {
  own();
  m_properties[name] = value;
}

void KPEPrjMetaDataModel::addStringArrayProperty(std::string const& name, std::vector<std::string> const& value) {
  own();
  m_properties[name] = value;
}

void KPEPrjMetaDataModel::addStringProperty(std::string const& name, std::string const& value) {
  own();
  m_properties[name] = value;
}

void KPEPrjMetaDataModel::addULongProperty(std::string const& name, unsigned long long value) {
  own();
  m_properties[name] = value;
}

bool KPEPrjMetaDataModel::getBooleanProperty(std::string const& name) const {
  return getIntegrProperty(name) != 0;
}

double KPEPrjMetaDataModel::getDoubleProperty(std::string const& name) const {
  double const* value = m_read ? findRead<double>(name) : find<double>(name);
  return value != nullptr ? *value : 0.0;
}

int KPEPrjMetaDataModel::getIntegrProperty(std::string const& name) const {
  int const* value = m_read ? findRead<int>(name) : find<int>(name);
  return value != nullptr ? *value : 0;
}

unsigned long long KPEPrjMetaDataModel::getULongProperty(std::string const& name) const {
  unsigned long long const* value = m_read ? findRead<unsigned long long>(name) : find<unsigned long long>(name);
  return value != nullptr ? *value : 0;
}

std::string KPEPrjMetaDataModel::getStringProperty(std::string const& name) {
  if (m_read) {
    auto const* text = findRead<MetaDataPropertyTable::Text>(name);
    return text != nullptr ? std::string(text->view()) : std::string();
  }
  std::string const* value = find<std::string>(name);
  return value != nullptr ? *value : std::string();
}

std::vector<std::string> KPEPrjMetaDataModel::getStringArrayProperty(std::string const& name) {
  if (m_read) {
    auto const* list = findRead<MetaDataPropertyTable::List>(name);
    return list != nullptr ? MetaDataPropertyTable::strings(*list) : std::vector<std::string>();
  }
  auto const* value = find<std::vector<std::string>>(name);
  return value != nullptr ? *value : std::vector<std::string>();
}

void KPEPrjMetaDataModel::removeProperty(std::string const& name) {
  own();
  m_properties.erase(name);
}

void KPEPrjMetaDataModel::clear() {
  m_read.reset();
  m_made = false;
  m_properties.clear();
}

bool KPEPrjMetaDataModel::isEmpty() const {
  return getPropertyCount() == 0;
}

std::size_t KPEPrjMetaDataModel::getPropertyCount() const {
  return m_read ? m_read->properties().size() : m_properties.size();
}

bool KPEPrjMetaDataModel::copy(KPEPrjMetaDataModel const& other) {
  if (&other == this) return true;
  std::map<std::string, boost::any> properties = other.getProperties();
  clear();
  m_properties.swap(properties);
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
  if (m_read) {
    for (MetaDataPropertyTable::Property const& property : m_read->properties()) {
      writer.StartObject();
      writer.Key(kName);
      writeString(writer, property.name.view());
      writeValue(writer, property.value);
      writer.EndObject();
    }
  } else {
    for (auto const& property : m_properties) {
      writer.StartObject();
      writer.Key(kName);
      writeString(writer, property.first);
      writeValue(writer, property.second);
      writer.EndObject();
    }
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
  std::unique_ptr<MetaDataPropertyTable> read = events.read();
  if (read->properties().empty()) return;
  if (isEmpty()) {
    clear();
    m_read = std::move(read);
    return;
  }
  // The document's value wins over the store's.
  own();
  for (MetaDataPropertyTable::Property const& property : read->properties())
    m_properties.insert_or_assign(std::string(property.name.view()), read->toAny(property.value));
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
