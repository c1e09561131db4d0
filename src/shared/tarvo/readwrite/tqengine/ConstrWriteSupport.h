#ifndef TARVO_CONSTRWRITESUPPORT_H
#define TARVO_CONSTRWRITESUPPORT_H

// Building blocks of the constraint classes' write operations (not exported).

#include <functional>
#include <string>
#include <vector>

#include "BaseConstraint.h"

namespace kpe {
namespace constraints {

class Address;
class BaseNameResolver;

namespace writesupport {

// Which translation a list of names takes on its way into a document or another store.
enum class NameKind { Node, Port };

inline JsonValue makeString(std::string const& text, JsonDocument& document) {
  return JsonValue(text.c_str(), static_cast<rapidjson::SizeType>(text.size()), document.GetAllocator());
}

// `key` must be a static text (a literal); it is not copied.
inline void addMember(JsonValue& object, char const* key, JsonValue& value, JsonDocument& document) {
  object.AddMember(rapidjson::StringRef(key), value, document.GetAllocator());
}

inline void addMember(JsonValue& object, std::string const& key, JsonValue& value, JsonDocument& document) {
  JsonValue name = makeString(key, document);
  object.AddMember(name, value, document.GetAllocator());
}

inline void addInt(JsonValue& object, char const* key, int number, JsonDocument& document) {
  JsonValue value(number);
  addMember(object, key, value, document);
}

inline void addString(JsonValue& object, char const* key, std::string const& text, JsonDocument& document) {
  JsonValue value = makeString(text, document);
  addMember(object, key, value, document);
}

inline void addTrue(JsonValue& object, char const* key, JsonDocument& document) {
  JsonValue value(true);
  addMember(object, key, value, document);
}

JsonValue makeStringArray(std::vector<std::string> const& items, JsonDocument& document);

// Document names through the resolver's scoped operations; a null resolver keeps them.
void resolveScopedNames(BaseNameResolver const* resolver, NameKind kind, std::vector<std::string>& names);
// Design names through the resolver's list operations; a null resolver keeps them.
void resolveNames(BaseNameResolver const* resolver, NameKind kind, std::vector<std::string>& names);

// Re-keys a property map: each key that translates to at least one name is replaced by an
// entry per name with the same properties; a key that translates to none stays.
ConstrPropertiesMap rekeyProperties(ConstrPropertiesMap const& properties,
                                    std::function<void(std::vector<std::string>&)> const& translate);

// Writes `names` as an array of name items under `key`: soft names as {"name": {"issoft":
// true}}, the others as strings. Names and property keys go through the scoped
// translation first. False, and nothing written, when no name is left.
bool writeNameItems(JsonValue& object, char const* key, std::vector<std::string> const& names,
                    ConstrPropertiesMap const& properties, BaseNameResolver const* resolver, NameKind kind,
                    JsonDocument& document);

// An address object with its set cells; empty when no cell is set.
JsonValue makeAddressObject(Address const& address, JsonDocument& document);

// Lists with add-unique semantics, as kept in string-list cells.
bool containsName(std::vector<std::string> const& names, std::string const& name);
std::vector<std::string> withUniqueAdded(std::vector<std::string> const& names, std::vector<std::string> const& added);
std::vector<std::string> softNamesOf(std::vector<std::string> const& names, ConstrPropertiesMap const& properties);
// Adds `name` if missing, then sets an existing entry's flag or makes one only if soft.
void setSoftName(std::vector<std::string>& names, ConstrPropertiesMap& properties, std::string const& name, bool soft);
// " rel(<object>,<word>)=(a,b,)", or nothing for an empty list.
std::string listText(std::string const& objName, char const* word, std::vector<std::string> const& names);

}  // namespace writesupport
}  // namespace constraints
}  // namespace kpe

#endif
