#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "ConstrHandler.h"
#include "ConstrReader.h"
#include "ConstrWriter.h"
#include "HDGUIStatus.h"
#include "HEXAll.h"
#include "NOCJsonTrafficSpecReader.h"
#include "NOCJsonTrafficSpecWriter.h"
#include "TestSupport.h"
#include "TrafficSpec.h"

// Editors find the schema of a document by a "$schema" key at its top. The constraint and
// traffic readers walk only the keys they know, so the key changes nothing that is read or
// written; their schemas let it through as long as it is a string.

namespace {

std::string const kSourceDir = TARVO_SOURCE_DIR;

// `document` with `member` as its first key.
std::string withFirstMember(std::string const& document, std::string const& member) {
  std::string::size_type const brace = document.find('{');
  return document.substr(0, brace + 1) + "\n  " + member + "," + document.substr(brace + 1);
}

// The message id and arguments with which `rewritten` refuses `text`, or "accepted".
std::string refusal(std::string (*rewritten)(std::string const&), std::string const& text) {
  try {
    rewritten(text);
  } catch (HEXAll const& error) {
    std::string refused = error.getMessage().getId();
    for (std::string const& arg : error.getMessage().getArgs())
      refused += "|" + arg;
    return refused;
  }
  return "accepted";
}

// The traffic specification read from `text` and written again.
std::string trafficRewritten(std::string const& text) {
  std::istringstream in(text);
  HrdIPToolCntr::TrafficSpec spec;
  HDGUIStatus status;
  NOC::NOCJsonTrafficSpecReader::readFromJsonFile(in, "t.json", spec, status);
  std::ostringstream out;
  EXPECT_TRUE(NOC::NOCJsonTrafficSpecWriter::writeToJsonFile(out, spec, status));
  return out.str();
}

// The constraint document read from `text` and written again, both against the source tree's schema.
std::string constraintsRewritten(std::string const& text) {
  std::string const schema = kSourceDir + "/data/kpetools_constr_schema.json";
  kpe::constraints::ConstrHandler store;
  kpe::constraints::ConstrReader reader(store);
  reader.setSchema(schema);
  std::istringstream in(text);
  reader.read(in, "c.json", true);
  kpe::constraints::ConstrWriter writer(store);
  writer.setSchema(schema);
  std::ostringstream out;
  writer.write(out, "c.json", true);
  store.clear();
  return out.str();
}

struct KeyCase {
  char const* sample;
  std::string (*rewritten)(std::string const&);
  char const* section;    // a key the written document has
  char const* schemaKey;  // a "$schema" member an editor would read
  char const* badKey;     // a "$schema" member that is no string
  char const* refusal;
};

TEST(SchemaKey, DocumentReadsAndWritesAsWithoutItAndMustBeAString) {
  tarvo_test::MessageCapture const quiet;
  KeyCase const cases[] = {
      {"examples/noc_traffic.json", trafficRewritten, "\"LogicalInstances\"",
       "\"$schema\": \"../data/parts/zorvex/common/noc/schemas/traffic.json\"", "\"$schema\": 4",
       "8-101|t.json|#/%24schema"},
      {"examples/constraints.json", constraintsRewritten, "\"NodeConstraints\"",
       "\"$schema\": \"file:///opt/tarvo/kpetools_constr_schema.json\"", "\"$schema\": {}",
       "75-571|c.json|#/properties/%24schema|type|#/%24schema"},
  };
  for (KeyCase const& each : cases) {
    std::string const plain = tarvo_test::readFile(kSourceDir + "/" + each.sample);
    std::string const expected = each.rewritten(plain);
    EXPECT_NE(expected.find(each.section), std::string::npos) << each.sample;
    EXPECT_EQ(expected.find("$schema"), std::string::npos) << each.sample;
    EXPECT_EQ(each.rewritten(withFirstMember(plain, each.schemaKey)), expected) << each.sample;
    EXPECT_EQ(refusal(each.rewritten, withFirstMember(plain, each.badKey)), each.refusal);
  }
}

}  // namespace
