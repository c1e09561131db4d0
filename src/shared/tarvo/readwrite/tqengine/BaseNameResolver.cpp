#include "BaseNameResolver.h"

#include <iterator>

#include "ComMsgMgr.h"

namespace kpe {
namespace constraints {

namespace {

// The message ids of one list operation: for one unresolved name and for several.
struct UnresolvedMessages {
  char const* one;
  char const* several;
};

void reportUnresolved(std::vector<std::string> const& unresolved, UnresolvedMessages const& ids) {
  if (unresolved.empty()) {
    return;
  }
  std::string text = unresolved.front();
  for (std::size_t i = 1; i < unresolved.size(); ++i) {
    text += ' ';
    text += unresolved[i];
  }
  char const* id = unresolved.size() == 1 ? ids.one : ids.several;
  ComMsgMgr::sendMsg::eval(1, __FILE__, __LINE__, "tarvo", ComMsgMgr::MsgMask(0x10000000), id, text.c_str());
}

// Shared shape of the list operations: `translate` appends the counterparts of one name.
template <typename Translate>
void resolveList(std::vector<std::string>& names, bool quiet, UnresolvedMessages const& ids,
                 Translate const& translate) {
  std::vector<std::string> resolved;
  std::vector<std::string> unresolved;
  resolved.reserve(names.size());
  for (std::string const& name : names) {
    std::size_t const before = resolved.size();
    translate(name, resolved);
    if (resolved.size() == before) {
      unresolved.push_back(name);
    }
  }
  if (!quiet) {
    reportUnresolved(unresolved, ids);
  }
  names.swap(resolved);
}

void appendIfNotEmpty(std::string text, std::vector<std::string>& out) {
  if (!text.empty()) {
    out.push_back(std::move(text));
  }
}

void appendAll(std::vector<std::string>& found, std::vector<std::string>& out) {
  out.insert(out.end(), std::make_move_iterator(found.begin()), std::make_move_iterator(found.end()));
}

// A pattern may append to `out` itself, so each call gets an empty vector: one, cleared
// between names, rather than one made for each.
template <typename Pattern>
void resolveThroughPatterns(BaseNameResolver const& resolver, std::vector<std::string>& names, bool quiet,
                            UnresolvedMessages const& ids, Pattern pattern) {
  std::vector<std::string> found;
  resolveList(names, quiet, ids, [&](std::string const& name, std::vector<std::string>& out) {
    found.clear();
    (resolver.*pattern)(name, found);
    appendAll(found, out);
  });
}

}  // namespace

BaseNameResolver::~BaseNameResolver() = default;

std::string BaseNameResolver::getScopeName() const {
  return std::string();
}

std::string BaseNameResolver::resolveNodeName(std::string const& name) const {
  return name;
}
std::string BaseNameResolver::resolvePortName(std::string const& name) const {
  return name;
}
std::string BaseNameResolver::resolveNetName(std::string const& name) const {
  return name;
}

std::string BaseNameResolver::getDocumentNodeName(std::string const& name) const {
  return name;
}
std::string BaseNameResolver::getDocumentPortName(std::string const& name) const {
  return name;
}
std::string BaseNameResolver::getDocumentNetName(std::string const& name) const {
  return name;
}

void BaseNameResolver::resolveNodePattern(std::string const& name, std::vector<std::string>& out) const {
  appendIfNotEmpty(resolveNodeName(name), out);
}

void BaseNameResolver::resolvePortPattern(std::string const& name, std::vector<std::string>& out) const {
  appendIfNotEmpty(resolvePortName(name), out);
}

void BaseNameResolver::resolveNetPattern(std::string const& name, std::vector<std::string>& out) const {
  appendIfNotEmpty(resolveNetName(name), out);
}

void BaseNameResolver::resolveNodeNames(std::vector<std::string>& names) const {
  resolveThroughPatterns(*this, names, quiet, {"@75-412@%s", "@75-413@%s"}, &BaseNameResolver::resolveNodePattern);
}

void BaseNameResolver::resolvePortNames(std::vector<std::string>& names) const {
  resolveThroughPatterns(*this, names, quiet, {"@75-414@%s", "@75-415@%s"}, &BaseNameResolver::resolvePortPattern);
}

void BaseNameResolver::resolveNetNames(std::vector<std::string>& names) const {
  resolveThroughPatterns(*this, names, quiet, {"@75-410@%s", "@75-411@%s"}, &BaseNameResolver::resolveNetPattern);
}

void BaseNameResolver::resolveScopedNodeNames(std::vector<std::string>& names) const {
  resolveList(names, quiet, {"@75-418@%s", "@75-419@%s"},
              [this](std::string const& name, std::vector<std::string>& out) {
                appendIfNotEmpty(getDocumentNodeName(name), out);
              });
}

void BaseNameResolver::resolveScopedPortNames(std::vector<std::string>& names) const {
  resolveList(names, quiet, {"@75-420@%s", "@75-421@%s"},
              [this](std::string const& name, std::vector<std::string>& out) {
                appendIfNotEmpty(getDocumentPortName(name), out);
              });
}

void BaseNameResolver::resolveScopedNetNames(std::vector<std::string>& names) const {
  resolveList(names, quiet, {"@75-416@%s", "@75-417@%s"},
              [this](std::string const& name, std::vector<std::string>& out) {
                appendIfNotEmpty(getDocumentNetName(name), out);
              });
}

}  // namespace constraints
}  // namespace kpe
