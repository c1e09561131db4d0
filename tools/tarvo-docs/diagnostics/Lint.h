#ifndef TARVO_DOCS_LINT_H
#define TARVO_DOCS_LINT_H

#include <rapidjson/document.h>

#include <string>
#include <vector>

#include "SourceMap.h"

namespace tarvo_diagnostics {

// A finding of --strict: something the library reads without a word but probably not as
// the writer meant.
struct LintFinding {
  SourceMap::Pointer pointer;  // the member or item found
  std::size_t occurrence = 0;  // which member of that key (duplicate keys)
  bool atKey = false;          // the place is the member's key, not its value
  std::string id;              // "tarvo-docs unknown-key", ...
  std::string text;
};

// The lint checks over a parsed document:
// - keys that the schema does not name in objects where it lets other keys through, with
//   the closest named key;
// - a key given twice in one object (readers take the first);
// - keys and strings that are not valid UTF-8;
// - values the library reads with loss: fractions where the traffic reader keeps an integer,
//   component types it does not know, constraint place texts it reads as names.
class Lint {
 public:
  // `schema` may be null (documents without one); `kind` is the program's kind name.
  static std::vector<LintFinding> run(rapidjson::Value const& document, rapidjson::Value const* schema,
                                      std::string const& kind);
  // Byte index of the first byte of `text` that breaks UTF-8, or npos.
  static std::size_t invalidUtf8At(char const* text, std::size_t length);
};

}  // namespace tarvo_diagnostics

#endif
