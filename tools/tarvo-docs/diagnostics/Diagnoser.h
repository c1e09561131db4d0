#ifndef TARVO_DOCS_DIAGNOSER_H
#define TARVO_DOCS_DIAGNOSER_H

#include <optional>
#include <string>
#include <vector>

#include "Diagnostic.h"
#include "LibraryReport.h"
#include "SourceMap.h"

namespace tarvo_diagnostics {

// Turns what the library reported about one document into diagnostics with places:
// - a syntax error at the line and column the library gives;
// - a schema failure as every violation that valijson finds over the same schema (at most
//   `maxSchemaViolations`, then a count), the one the library reported always among them;
// - a message that names an object of the document at the place where the document names it;
// - under `strict`, the lint findings as warnings.
// The text is scanned once for all places, and only when there is something to place.
class Diagnoser {
 public:
  struct Options {
    std::string schemaFile;  // the schema the library used; "" for a document without one
    std::string kind;        // the program's kind name ("traffic", "constraints", ...)
    bool strict = false;
    std::size_t maxSchemaViolations = 50;
  };

  // `file` is the name the diagnostics give and the file read (gzip-aware) for places; the
  // text is read only when something is to be placed, so a clean read costs nothing more.
  Diagnoser(std::string file, Options options);
  // The same, with the document's text at hand (standard input, or text already in memory).
  Diagnoser(std::string file, std::string text, Options options);

  std::vector<Diagnostic> diagnose(LibraryReport const& report) const;

  // The text of a file, through the library's gzip-aware opener ("" when it cannot be read).
  static std::string readText(std::string const& file);
  // The schema file that the library's reader of `kind` uses, found the way the library finds
  // it; "" for project metadata and unknown kinds.
  static std::string schemaFileOf(std::string const& kind);

 private:
  class Run;

  std::string m_file;
  std::optional<std::string> m_text;
  Options m_options;
};

}  // namespace tarvo_diagnostics

#endif
