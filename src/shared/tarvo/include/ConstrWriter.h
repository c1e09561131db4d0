#ifndef TARVO_CONSTRWRITER_H
#define TARVO_CONSTRWRITER_H

#include <rapidjson/schema.h>

#include <iosfwd>
#include <memory>
#include <string>

#include "BaseConstraint.h"

namespace kpe {
namespace constraints {

class BaseNameResolver;
class ConstrHandler;

// Writes a store as a constraint document, through a schema validator unless told not to.
// Failures raise HEXAll (mask 0x20000000); an empty store writes nothing.
class ConstrWriter {
 public:
  // Uses a resolver of its own that maps every name to itself.
  explicit ConstrWriter(ConstrHandler const& store);
  // `resolver` must outlive the writer.
  ConstrWriter(ConstrHandler const& store, BaseNameResolver const& resolver);
  ConstrWriter(ConstrWriter const&) = delete;
  ConstrWriter& operator=(ConstrWriter const&) = delete;
  virtual ~ConstrWriter();

  // A schema file to use instead of the installed one.
  void setSchema(std::string const& file);

  void write(std::ostream& out, std::string const& name, bool validate);
  // An empty store removes the file instead.
  void write(std::string const& file, bool validate);
  // Only "GlobalConstraints": the area groups and the other three group kinds.
  void writeAreaGroupConstrs(std::ostream& out, std::string const& name, bool validate);
  void writeAreaGroupConstrs(std::string const& file, bool validate);

  // The installed constraint schema: "kpetools_constr_schema.json" in the data directory,
  // else parts/zorvex/common/tellura/KPEConstrSchema.json; empty when neither is a file.
  static std::string findInstalledSchemaFile();

 private:
  enum class Content { AllSections, GlobalOnly };

  void writeStream(std::ostream& out, std::string const& name, bool validate, Content content);
  void writeFile(std::string const& file, bool validate, Content content);
  void reset();
  std::string getSchemaFile() const;
  void loadSchema(std::string const& path);
  void buildDocument(Content content);
  void addObjectSection(char const* key, BaseConstraint::ObjectType objType);
  void addGlobalSection();
  void emit(std::ostream& out, bool validate);

  JsonDocument& getDocument();
  JsonDocument const& getDocument() const;
  JsonDocument::AllocatorType& getAllocator();
  JsonDocument::AllocatorType const& getAllocator() const;

  std::unique_ptr<BaseNameResolver> m_ownedResolver;
  ConstrHandler const* m_store;
  BaseNameResolver const* m_resolver;
  std::unique_ptr<rapidjson::SchemaDocument> m_schema;
  std::unique_ptr<JsonDocument> m_doc;
  std::string m_fileName;
  std::string m_schemaOverride;
};

}  // namespace constraints
}  // namespace kpe

#endif
