#include "ConstrWriteSupport.h"

#include <algorithm>

#include "Address.h"
#include "BaseNameResolver.h"
#include "ConstrDocumentKeys.h"

namespace kpe {
namespace constraints {

typedef ConstrDocumentKeys Keys;
namespace writesupport {

JsonValue makeStringArray(std::vector<std::string> const& items, JsonDocument& document) {
  JsonValue array(rapidjson::kArrayType);
  array.Reserve(static_cast<rapidjson::SizeType>(items.size()), document.GetAllocator());
  for (std::string const& item : items) {
    array.PushBack(makeString(item, document), document.GetAllocator());
  }
  return array;
}

void resolveScopedNames(BaseNameResolver const* resolver, NameKind kind, std::vector<std::string>& names) {
  if (resolver == nullptr) {
    return;
  }
  if (kind == NameKind::Node) {
    resolver->resolveScopedNodeNames(names);
  } else {
    resolver->resolveScopedPortNames(names);
  }
}

void resolveNames(BaseNameResolver const* resolver, NameKind kind, std::vector<std::string>& names) {
  if (resolver == nullptr) {
    return;
  }
  if (kind == NameKind::Node) {
    resolver->resolveNodeNames(names);
  } else {
    resolver->resolvePortNames(names);
  }
}

ConstrPropertiesMap rekeyProperties(ConstrPropertiesMap const& properties,
                                    std::function<void(std::vector<std::string>&)> const& translate) {
  ConstrPropertiesMap rekeyed = properties;
  for (auto const& entry : properties) {
    std::vector<std::string> names(1, entry.first);
    translate(names);
    if (names.empty()) {
      continue;
    }
    rekeyed.erase(entry.first);
    for (std::string const& name : names) {
      rekeyed[name] = entry.second;
    }
  }
  return rekeyed;
}

bool writeNameItems(JsonValue& object, char const* key, std::vector<std::string> const& names,
                    ConstrPropertiesMap const& properties, BaseNameResolver const* resolver, NameKind kind,
                    JsonDocument& document) {
  std::vector<std::string> documentNames = names;
  resolveScopedNames(resolver, kind, documentNames);
  if (documentNames.empty()) {
    return false;
  }
  ConstrPropertiesMap const documentProperties =
      resolver == nullptr ? properties : rekeyProperties(properties, [resolver, kind](std::vector<std::string>& n) {
        resolveScopedNames(resolver, kind, n);
      });
  auto& allocator = document.GetAllocator();
  JsonValue items(rapidjson::kArrayType);
  items.Reserve(static_cast<rapidjson::SizeType>(documentNames.size()), allocator);
  for (std::string const& name : documentNames) {
    if (!ConstrProperties::hasNonDefaultProps(name, documentProperties)) {
      items.PushBack(makeString(name, document), allocator);
      continue;
    }
    JsonValue flags(rapidjson::kObjectType);
    addTrue(flags, Keys::issoft, document);
    JsonValue item(rapidjson::kObjectType);
    addMember(item, name, flags, document);
    items.PushBack(item, allocator);
  }
  addMember(object, key, items, document);
  return true;
}

JsonValue makeAddressObject(Address const& address, JsonDocument& document) {
  JsonValue object(rapidjson::kObjectType);
  if (address.hasColumn()) {
    addInt(object, Keys::column, address.getColumn(), document);
  }
  if (address.hasRow()) {
    addInt(object, Keys::row, address.getRow(), document);
  }
  if (address.hasBankId()) {
    addInt(object, Keys::bankId, address.getBankId(), document);
  }
  if (address.hasOffset()) {
    addInt(object, Keys::offset, address.getOffset(), document);
  }
  return object;
}

bool containsName(std::vector<std::string> const& names, std::string const& name) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

std::vector<std::string> withUniqueAdded(std::vector<std::string> const& names, std::vector<std::string> const& added) {
  std::vector<std::string> result = names;
  for (std::string const& name : added) {
    if (!containsName(result, name)) {
      result.push_back(name);
    }
  }
  return result;
}

std::vector<std::string> softNamesOf(std::vector<std::string> const& names, ConstrPropertiesMap const& properties) {
  std::vector<std::string> soft;
  for (std::string const& name : names) {
    if (ConstrProperties::hasNonDefaultProps(name, properties)) {
      soft.push_back(name);
    }
  }
  return soft;
}

void setSoftName(std::vector<std::string>& names, ConstrPropertiesMap& properties, std::string const& name, bool soft) {
  if (!containsName(names, name)) {
    names.push_back(name);
  }
  auto const found = properties.find(name);
  if (found != properties.end()) {
    found->second.soft = soft;
  } else if (soft) {
    properties[name].soft = true;
  }
}

std::string listText(std::string const& objName, char const* word, std::vector<std::string> const& names) {
  if (names.empty()) {
    return std::string();
  }
  std::string text = " rel(" + objName + "," + word + ")=(";
  for (std::string const& name : names) {
    text += name + ",";
  }
  return text + ")";
}

}  // namespace writesupport
}  // namespace constraints
}  // namespace kpe
