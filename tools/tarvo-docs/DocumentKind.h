#ifndef TARVO_DOCS_DOCUMENTKIND_H
#define TARVO_DOCS_DOCUMENTKIND_H

#include <rapidjson/document.h>

#include <functional>
#include <iosfwd>
#include <map>
#include <memory>
#include <string>
#include <vector>

class HDGUIStatus;

namespace tarvo_docs {

// Options of the command line that a document kind may use: `--name value` pairs as given
// (for example "--traffic" -> "t.json"), repeatable options in the order given.
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

// A document read into the library's model.
class LoadedDocument {
 public:
  virtual ~LoadedDocument() = default;
  // One short phrase for the summary line of `check`, such as "12 properties".
  virtual std::string brief() const = 0;
  // What the model holds, for `summary`.
  virtual void summarize(std::ostream& out) const = 0;
  // Writes the model through the library's writer; false when the writer refused.
  virtual bool write(std::ostream& out, ToolOptions const& options) const = 0;
};

// A command beyond check, summary and convert that a document kind brings, such as
// `rename-ports`. `run` returns the exit status.
struct ExtraCommand {
  std::string name;
  std::string usage;  // one line for --help
  std::function<int(std::vector<std::string> const& args, ToolOptions const& options)> run;
};

// One kind of document that tarvo-docs serves. Each kind lives in kinds/ and is listed once in
// DocumentKinds.cpp.
class DocumentKind {
 public:
  virtual ~DocumentKind() = default;
  // The name used with --kind, such as "metadata".
  virtual std::string name() const = 0;
  // True when a parsed document looks like this kind (by its top-level keys).
  virtual bool recognises(rapidjson::Value const& root) const = 0;
  // Reads the file with the library's reader. Failures leave by the library's exceptions.
  virtual std::unique_ptr<LoadedDocument> read(std::string const& file, ToolOptions const& options,
                                               HDGUIStatus& status) const = 0;
  virtual std::vector<ExtraCommand> extraCommands() const { return {}; }
  // Options (besides the common ones) that take a value, such as "--traffic", and options
  // that stand alone, such as "--hw", for the argument parser.
  virtual std::vector<std::string> valueOptions() const { return {}; }
  virtual std::vector<std::string> flagOptions() const { return {}; }
};

// Every kind the program knows, in the order they are tried when detecting.
std::vector<std::unique_ptr<DocumentKind>> const& documentKinds();

}  // namespace tarvo_docs

#endif
