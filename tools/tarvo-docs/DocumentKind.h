#ifndef TARVO_DOCS_DOCUMENTKIND_H
#define TARVO_DOCS_DOCUMENTKIND_H

#include <iosfwd>
#include <memory>
#include <string>
#include <vector>

#include "DocumentSource.h"
#include "ToolOptions.h"
#include "TopLevelKeys.h"

class HDGUIStatus;

namespace tarvo_docs {

// A document read into the library's model.
class LoadedDocument {
 public:
  virtual ~LoadedDocument() = default;
  // One short phrase for the summary line of `check`, such as "12 properties".
  virtual std::string brief() const = 0;
  // What the model holds, for `summary`.
  virtual void summarize(std::ostream& out) const = 0;
  // Writes the model through the library's writer, which updates `status`; false when the
  // writer refused (after its own message). A model that cannot be written this way throws
  // with the reason. A writer may write nothing at all, which is not a refusal.
  virtual bool write(std::ostream& out, ToolOptions const& options, HDGUIStatus& status) const = 0;
};

// One kind of document that tarvo-docs serves. Each kind lives in kinds/ and is listed once in
// DocumentKinds.cpp.
class DocumentKind {
 public:
  virtual ~DocumentKind() = default;
  // The name used with --kind, such as "metadata".
  virtual std::string name() const = 0;
  // True when the top-level keys read so far make a document this kind.
  virtual bool recognises(TopLevelKeys const& keys) const = 0;
  // Reads the document with the library's reader (its file or stream form). Failures leave
  // by the library's exceptions.
  virtual std::unique_ptr<LoadedDocument> read(DocumentSource const& source, ToolOptions const& options,
                                               HDGUIStatus& status) const = 0;
  // The installed schema of the kind, where the library looks for it; editors use it too.
  virtual std::string schemaFile() const = 0;
};

// Every kind the program knows, in the order they are tried when detecting.
std::vector<std::unique_ptr<DocumentKind>> const& documentKinds();
// The kind of that name, or null.
DocumentKind const* findKind(std::string const& name);

}  // namespace tarvo_docs

#endif
