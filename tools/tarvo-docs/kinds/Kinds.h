#ifndef TARVO_DOCS_KINDS_H
#define TARVO_DOCS_KINDS_H

#include <memory>

#include "../DocumentKind.h"

namespace tarvo_docs {

// One factory per document kind, each defined in its own file of this folder.
std::unique_ptr<DocumentKind> makeMetadataKind();
std::unique_ptr<DocumentKind> makeConstraintKind();
std::unique_ptr<DocumentKind> makeLogicalArchKind();
std::unique_ptr<DocumentKind> makeTrafficKind();
std::unique_ptr<DocumentKind> makeNocSolutionKind();
std::unique_ptr<DocumentKind> makeCompilerSolutionKind();
std::unique_ptr<DocumentKind> makeNocConstraintsKind();

}  // namespace tarvo_docs

#endif
