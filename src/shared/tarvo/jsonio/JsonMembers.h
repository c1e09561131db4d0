#ifndef TARVO_JSONMEMBERS_H
#define TARVO_JSONMEMBERS_H

#include <rapidjson/document.h>

#include <string_view>

namespace tarvo {
namespace jsonio {

// Member look-up that tests before it touches: operator[] on a missing member, or on a value
// that is no object, reads garbage in a release build.
class JsonMembers {
 public:
  typedef rapidjson::Value Value;

  // The member's value, or null when `object` is no object or has no such member.
  static Value const* find(Value const& object, std::string_view key) {
    if (!object.IsObject()) return nullptr;
    Value::ConstMemberIterator const found =
        object.FindMember(Value(rapidjson::StringRef(key.data(), static_cast<rapidjson::SizeType>(key.size()))));
    return found == object.MemberEnd() ? nullptr : &found->value;
  }
  // The member's value when it is an array, otherwise null.
  static Value const* findArray(Value const& object, std::string_view key) {
    Value const* value = find(object, key);
    return value != nullptr && value->IsArray() ? value : nullptr;
  }
  // The member's value when it is an object, otherwise null.
  static Value const* findObject(Value const& object, std::string_view key) {
    Value const* value = find(object, key);
    return value != nullptr && value->IsObject() ? value : nullptr;
  }
};

}  // namespace jsonio
}  // namespace tarvo

#endif
