#ifndef TARVO_DOCS_TOOLOPTIONS_H
#define TARVO_DOCS_TOOLOPTIONS_H

#include <map>
#include <string>
#include <vector>

namespace tarvo_docs {

// Options of the command line that a document kind or a command may use: `--name value`
// pairs as given (for example "--traffic" -> "t.json"), repeatable options in the order
// given, flags with the value "true".
class ToolOptions {
 public:
  void add(std::string const& name, std::string const& value) { m_values[name].push_back(value); }
  bool has(std::string const& name) const { return m_values.count(name) != 0; }
  // The last value given for `name`, or `fallback`.
  std::string get(std::string const& name, std::string const& fallback = std::string()) const;
  std::vector<std::string> getAll(std::string const& name) const;

 private:
  std::map<std::string, std::vector<std::string>> m_values;
};

}  // namespace tarvo_docs

#endif
