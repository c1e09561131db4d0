#include "JsonPointerText.h"

namespace tarvo {
namespace jsonio {

namespace {

bool isUnreserved(char c) {
  return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '-' || c == '.' ||
         c == '_' || c == '~';
}

}  // namespace

std::string JsonPointerText::uriFragment(rapidjson::Pointer const& pointer) {
  static char const* const hexDigits = "0123456789ABCDEF";
  std::string text = "#";
  for (rapidjson::Pointer::Token const* token = pointer.GetTokens();
       token != pointer.GetTokens() + pointer.GetTokenCount(); ++token) {
    text += '/';
    for (rapidjson::SizeType i = 0; i < token->length; ++i) {
      char const c = token->name[i];
      if (c == '~') {
        text += "~0";
      } else if (c == '/') {
        text += "~1";
      } else if (isUnreserved(c)) {
        text += c;
      } else {
        unsigned char const byte = static_cast<unsigned char>(c);
        text += '%';
        text += hexDigits[byte >> 4];
        text += hexDigits[byte & 15];
      }
    }
  }
  return text;
}

}  // namespace jsonio
}  // namespace tarvo
