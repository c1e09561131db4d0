#ifndef TARVO_DOCS_TOPLEVELKEYS_H
#define TARVO_DOCS_TOPLEVELKEYS_H

#include <algorithm>
#include <initializer_list>
#include <string>
#include <vector>

namespace tarvo_docs {

// The top-level keys of a JSON object as far as kind detection has read them, in document
// order, and the one look inside a value that a kind needs.
struct TopLevelKeys {
  std::vector<std::string> keys;
  // Whether the first element of "Placement" is an object whose "LogicalInstance" is an
  // object (a compiler solution names instance and port; NoC placements name a string).
  bool placementNamesObjects = false;

  bool has(char const* key) const { return std::find(keys.begin(), keys.end(), key) != keys.end(); }
  bool hasAny(std::initializer_list<char const*> some) const {
    return std::any_of(some.begin(), some.end(), [this](char const* key) { return has(key); });
  }
  bool allAmong(std::initializer_list<char const*> allowed) const {
    return std::all_of(keys.begin(), keys.end(), [&allowed](std::string const& key) {
      return std::find(allowed.begin(), allowed.end(), key) != allowed.end();
    });
  }
};

}  // namespace tarvo_docs

#endif
