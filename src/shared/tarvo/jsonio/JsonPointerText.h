#ifndef TARVO_JSONPOINTERTEXT_H
#define TARVO_JSONPOINTERTEXT_H

#include <rapidjson/pointer.h>

#include <string>

namespace tarvo {
namespace jsonio {

// The text of a JSON pointer in the reports.
class JsonPointerText {
 public:
  // "#/a/0": a pointer as a URI fragment, in RapidJSON's form. RapidJSON's own writing reads
  // past the end of a key that isn't valid UTF-8; here such bytes are percent-encoded one by one.
  static std::string uriFragment(rapidjson::Pointer const& pointer);
};

}  // namespace jsonio
}  // namespace tarvo

#endif
