#include "DocumentKind.h"
#include "kinds/Kinds.h"

namespace tarvo_docs {

// The one place where document kinds are listed; detection tries them in this order.
std::vector<std::unique_ptr<DocumentKind>> const& documentKinds() {
  static std::vector<std::unique_ptr<DocumentKind>> const kinds = [] {
    std::vector<std::unique_ptr<DocumentKind>> all;
    all.push_back(makeMetadataKind());
    all.push_back(makeConstraintKind());
    all.push_back(makeLogicalArchKind());
    all.push_back(makeTrafficKind());
    all.push_back(makeNocSolutionKind());
    all.push_back(makeCompilerSolutionKind());
    all.push_back(makeNocConstraintsKind());
    return all;
  }();
  return kinds;
}

DocumentKind const* findKind(std::string const& name) {
  for (auto const& kind : documentKinds())
    if (kind->name() == name) return kind.get();
  return nullptr;
}

}  // namespace tarvo_docs
