#include <gtest/gtest.h>

#include <boost/filesystem.hpp>

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <cstring>
#include <sstream>
#include <string>
#include <vector>

#include "HCRapidJsonReadWriteUtils.h"
#include "JsonDocumentFrame.h"
#include "KPEPrjMetaDataModel.h"
#include "TestSupport.h"

// The installed schemas are read by people and editors as much as by validators: every key
// says what it means, and what it shows as an example or default is a value it accepts.

namespace {

namespace fs = boost::filesystem;
typedef JsonDocumentFrame Frame;

std::string const kSourceDir = TARVO_SOURCE_DIR;
std::string const kMetadataSchema = kSourceDir + "/data/parts/zorvex/common/tellura/ProjectMetaDataSchema.json";

// Every schema below data/ that is installed for a document, not the meta-schema.
std::vector<std::string> installedSchemas() {
  std::vector<std::string> found;
  for (fs::recursive_directory_iterator it(kSourceDir + "/data"), end; it != end; ++it) {
    std::string const path = it->path().string();
    if (it->path().extension() == ".json" && path.find("/json-schema/") == std::string::npos &&
        path.find("/messages/") == std::string::npos)
      found.push_back(path.substr(kSourceDir.size() + 1));
  }
  std::sort(found.begin(), found.end());
  return found;
}

Frame::Document parseFile(std::string const& path) {
  Frame::Document doc;
  std::istringstream in(tarvo_test::readFile(path));
  Frame::parse(in, path, doc);
  return doc;
}

std::string pointerStep(std::string step) {
  for (std::string::size_type at = 0; (at = step.find_first_of("~/", at)) != std::string::npos; at += 2)
    step.replace(at, 1, step[at] == '~' ? "~0" : "~1");
  return step;
}

// A sub-schema found by walking the schema keywords, with its JSON pointer.
struct SubSchema {
  std::string pointer;
  Frame::Value const* schema;
  bool isProperty;
};

void walk(Frame::Value const& schema, std::string const& pointer, bool isProperty, std::vector<SubSchema>& out) {
  if (!schema.IsObject()) return;
  out.push_back({pointer, &schema, isProperty});
  for (auto const& member : schema.GetObject()) {
    std::string const key = member.name.GetString();
    std::string const here = pointer + "/" + pointerStep(key);
    if ((key == "properties" || key == "definitions" || key == "patternProperties") && member.value.IsObject()) {
      for (auto const& entry : member.value.GetObject())
        walk(entry.value, here + "/" + pointerStep(entry.name.GetString()), key == "properties", out);
    } else if ((key == "items" || key == "additionalProperties" || key == "not") && member.value.IsObject()) {
      walk(member.value, here, false, out);
    } else if ((key == "items" || key == "anyOf" || key == "allOf" || key == "oneOf") && member.value.IsArray()) {
      for (rapidjson::SizeType i = 0; i < member.value.Size(); ++i)
        walk(member.value[i], here + "/" + std::to_string(i), false, out);
    }
  }
}

std::vector<SubSchema> subSchemas(Frame::Value const& root) {
  std::vector<SubSchema> all;
  walk(root, "", false, all);
  return all;
}

// A JSON pointer as a URI fragment, as "$ref" takes it: "$schema" becomes "%24schema".
std::string uriFragment(std::string const& pointer) {
  std::string fragment = "#";
  for (unsigned char c : pointer) {
    char hex[4];
    std::snprintf(hex, sizeof hex, "%%%02X", c);
    fragment += std::isalnum(c) || std::strchr("/~-._", c) != nullptr ? std::string(1, static_cast<char>(c)) : hex;
  }
  return fragment;
}

// Whether `value` passes the sub-schema at `pointer` of the schema document `root`.
bool passes(Frame::Value const& root, std::string const& pointer, Frame::Value const& value, std::string& where) {
  Frame::Document schema;
  schema.CopyFrom(root, schema.GetAllocator());
  schema.RemoveMember("$ref");
  schema.AddMember("$ref", Frame::Value(uriFragment(pointer).c_str(), schema.GetAllocator()), schema.GetAllocator());
  rapidjson::SchemaDocument const compiled(schema);
  Frame::SchemaViolation violation;
  if (Frame::validate(value, compiled, &violation)) return true;
  where = violation.schemaPointer + " " + violation.keyword + " at " + violation.documentPointer;
  return false;
}

TEST(SchemaAnnotations, EveryPropertyAndDefinitionIsDescribed) {
  std::vector<std::string> undescribed;
  std::size_t properties = 0;
  for (std::string const& file : installedSchemas()) {
    Frame::Document const doc = parseFile(kSourceDir + "/" + file);
    for (SubSchema const& sub : subSchemas(doc)) {
      bool const isDefinition = sub.pointer.rfind("/definitions/", 0) == 0 &&
                                sub.pointer.find('/', std::string("/definitions/").size()) == std::string::npos;
      properties += sub.isProperty ? 1 : 0;
      if ((sub.isProperty || isDefinition) && !sub.schema->HasMember("description"))
        undescribed.push_back(file + "#" + sub.pointer);
    }
  }
  EXPECT_EQ(undescribed, std::vector<std::string>());
  EXPECT_GE(properties, 283u);
}

TEST(SchemaAnnotations, ExamplesAndDefaultsAreValuesTheSchemaAccepts) {
  std::size_t checked = 0;
  for (std::string const& file : installedSchemas()) {
    HCRapidJsonReadWriteUtils::validateSchemaFile(kSourceDir + "/" + file);  // still a draft-04 schema
    Frame::Document const doc = parseFile(kSourceDir + "/" + file);
    for (SubSchema const& sub : subSchemas(doc)) {
      std::vector<Frame::Value const*> shown;
      if (sub.schema->HasMember("default")) shown.push_back(&(*sub.schema)["default"]);
      if (sub.schema->HasMember("examples") && (*sub.schema)["examples"].IsArray())
        for (Frame::Value const& example : (*sub.schema)["examples"].GetArray())
          shown.push_back(&example);
      for (Frame::Value const* value : shown) {
        std::string where;
        EXPECT_TRUE(passes(doc, sub.pointer, *value, where)) << file << "#" << sub.pointer << ": " << where;
        ++checked;
      }
    }
  }
  EXPECT_GT(checked, 50u);
}

// Validates `text` against the metadata schema: empty when it passes, else where it fails.
std::string metadataVerdict(std::string const& text) {
  Frame::Document doc;
  std::istringstream in(text);
  Frame::parse(in, "m.json", doc);
  Frame::SchemaViolation violation;
  if (Frame::validate(doc, *Frame::loadSchema(kMetadataSchema), &violation)) return std::string();
  return violation.schemaPointer + " " + violation.keyword + " " + violation.documentPointer;
}

TEST(SchemaAnnotations, MetadataSchemaAcceptsWhatTheLibraryWritesAndReads) {
  Tarvo::Frameworks::KPEPrjMetaDataModel model;
  model.addBooleanProperty("b", true);
  model.addDoubleProperty("d", 2.0);
  model.addIntegrProperty("i", -7);
  model.addStringArrayProperty("list", {"x", "y"});
  model.addStringProperty("s", "text");
  model.addULongProperty("u", 18446744073709551615ull);
  model.setKPEPLIntfID(0xFFFFFFFFu);
  std::ostringstream written;
  model.writeToJSONStream(written);
  EXPECT_EQ(metadataVerdict(written.str()), "");
  Tarvo::Frameworks::KPEPrjMetaDataModel empty;
  std::ostringstream none;
  empty.writeToJSONStream(none);
  EXPECT_EQ(metadataVerdict(none.str()), "");
  EXPECT_EQ(metadataVerdict(tarvo_test::readFile(kSourceDir + "/examples/project_meta.json")), "");
  // The reader skips what it cannot hold and ignores other keys; the schema lets that through.
  EXPECT_EQ(metadataVerdict(R"({"MetaData": [{"name": "a"}, {"name": "b", "value": null},
                                              {"name": "c", "value": {"x": 1}}], "Comment": "kept"})"),
            "");
  EXPECT_EQ(metadataVerdict("{}"), "");
  // What is no metadata document at all.
  EXPECT_EQ(metadataVerdict("[]"), "# type #");
  EXPECT_EQ(metadataVerdict(R"({"MetaData": {"name": "a", "value": 1}})"), "#/properties/MetaData type #/MetaData");
  EXPECT_EQ(metadataVerdict(R"({"MetaData": [{"name": 3, "value": 1}]})"),
            "#/definitions/property/properties/name type #/MetaData/0/name");
}

}  // namespace
