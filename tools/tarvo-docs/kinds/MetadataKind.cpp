#include <ostream>

#include "KPEPrjMetaDataModel.h"
#include "Kinds.h"
#include "LoadedDocuments.h"
#include "NOCJsonReadWriteUtils.h"

namespace tarvo_docs {

namespace {

using Tarvo::Frameworks::KPEPrjMetaDataModel;

std::string typeName(boost::any const& value) {
  if (value.type() == typeid(bool)) return "boolean";
  if (value.type() == typeid(int)) return "integer";
  if (value.type() == typeid(unsigned long long)) return "unsigned long";
  if (value.type() == typeid(double)) return "double";
  if (value.type() == typeid(std::string)) return "string";
  return "string array";
}

std::string valueText(boost::any const& value) {
  if (bool const* b = boost::any_cast<bool>(&value)) return *b ? "true" : "false";
  if (int const* i = boost::any_cast<int>(&value)) return std::to_string(*i);
  if (auto const* u = boost::any_cast<unsigned long long>(&value)) return std::to_string(*u);
  if (double const* d = boost::any_cast<double>(&value)) return std::to_string(*d);
  if (auto const* s = boost::any_cast<std::string>(&value)) return "\"" + *s + "\"";
  std::string text = "[";
  for (std::string const& item : boost::any_cast<std::vector<std::string>>(value))
    text += (text.size() > 1 ? ", \"" : "\"") + item + "\"";
  return text + "]";
}

class MetadataKind : public DocumentKind {
 public:
  std::string name() const override { return "metadata"; }

  bool recognises(TopLevelKeys const& keys) const override { return keys.has("MetaData"); }

  // The library reads metadata with no schema; this one is for the program and editors.
  std::string schemaFile() const override {
    return NOCJsonReadWriteUtils::getSchemaFile({"parts", "zorvex", "common", "tellura", "ProjectMetaDataSchema.json"});
  }

  std::unique_ptr<LoadedDocument> read(DocumentSource const& source, ToolOptions const&, HDGUIStatus&) const override {
    auto loaded = std::make_unique<LoadedMetadata>();
    KPEPrjMetaDataModel& model = loaded->model;
    // The library's file form is this stream form on a plain file.
    source.open(JsonDocumentFrame::Opener::PlainFile, [&model](std::istream& in, std::string const& name) {
      model.readFromJSONStream(name, in);
      return true;
    });
    return loaded;
  }
};

}  // namespace

std::string LoadedMetadata::brief() const {
  std::size_t const count = model.getPropertyCount();
  return std::to_string(count) + (count == 1 ? " property" : " properties");
}

void LoadedMetadata::summarize(std::ostream& out) const {
  out << "Project metadata: " << brief() << "\n";
  for (auto const& property : model.getProperties())
    out << "  " << property.first << " (" << typeName(property.second) << ") = " << valueText(property.second) << "\n";
}

bool LoadedMetadata::write(std::ostream& out, ToolOptions const&, HDGUIStatus&) const {
  model.writeToJSONStream(out);
  return true;
}

std::unique_ptr<DocumentKind> makeMetadataKind() {
  return std::make_unique<MetadataKind>();
}

}  // namespace tarvo_docs
