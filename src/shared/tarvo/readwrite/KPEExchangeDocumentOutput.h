#ifndef TARVO_KPEEXCHANGEDOCUMENTOUTPUT_H
#define TARVO_KPEEXCHANGEDOCUMENTOUTPUT_H

#include <iosfwd>
#include <string>

#include "JsonDocumentFrame.h"

// The end of the write sequence that the compiler solution and shim constraints writers
// share: their schema failure names the rule, its keyword and the value.
class KPEExchangeDocumentOutput {
 public:
  // Writes `doc` through the schema at `schemaPath` (failures to load it throw). On a
  // mismatch reports it and returns false; the text up to the invalid value stays.
  static bool write(std::ostream& out, JsonDocumentFrame::Value const& doc, std::string const& schemaPath);
  // Sends "@75-645@%s%s%s" with the schema place, the keyword and the document place.
  static void reportViolation(JsonDocumentFrame::SchemaViolation const& violation);
};

#endif
