#ifndef TARVO_DOCS_KINDDETECTION_H
#define TARVO_DOCS_KINDDETECTION_H

#include <istream>
#include <string>

#include "DocumentKind.h"
#include "DocumentSource.h"

namespace tarvo_docs {

// Tells the kind of a document from its first top-level keys. The text is read by a
// streaming parser that stops as soon as the keys read so far make one kind certain (kinds
// tried in their order), so that detecting costs the first few keys, not a parse of the file.
// A document that no kind recognises is parsed whole by the library, so that a syntax error
// is reported as the library reports it (file, line and column); otherwise it fails with
// "cannot tell which kind of document ...". A missing or unreadable file fails with the
// library's report.
DocumentKind const& detectKind(DocumentSource const& source);

// The same on text in memory, shown as `displayName` in reports.
DocumentKind const& detectKind(std::string const& text, std::string const& displayName);

}  // namespace tarvo_docs

#endif
