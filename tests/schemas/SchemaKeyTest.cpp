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

std::string refusal(HEXAll const& error) {
  std::string text = error.getMessage().getId();
  for (std::string const& arg : error.getMessage().getArgs())
    text += "|" + arg;
  return text;
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

TEST(SchemaKey, TrafficDocumentReadsAndWritesAsWithoutIt) {
  tarvo_test::MessageCapture const quiet;
  std::string const plain = tarvo_test::readFile(kSourceDir + "/examples/noc_traffic.json");
  std::string const expected = trafficRewritten(plain);
  ASSERT_NE(expected.find("\"LogicalInstances\""), std::string::npos);
  EXPECT_EQ(
      trafficRewritten(withFirstMember(plain, "\"$schema\": \"../data/parts/zorvex/common/noc/schemas/traffic.json\"")),
      expected);
  EXPECT_EQ(expected.find("$schema"), std::string::npos);
  try {
    trafficRewritten(withFirstMember(plain, "\"$schema\": 4"));
    ADD_FAILURE() << "a number as $schema was accepted";
  } catch (HEXAll const& error) {
    EXPECT_EQ(refusal(error), "8-101|t.json|#/%24schema");
  }
}

TEST(SchemaKey, ConstraintDocumentReadsAndWritesAsWithoutIt) {
  tarvo_test::MessageCapture const quiet;
  std::string const plain = tarvo_test::readFile(kSourceDir + "/examples/constraints.json");
  std::string const expected = constraintsRewritten(plain);
  ASSERT_NE(expected.find("\"NodeConstraints\""), std::string::npos);
  EXPECT_EQ(
      constraintsRewritten(withFirstMember(plain, "\"$schema\": \"file:///opt/tarvo/kpetools_constr_schema.json\"")),
      expected);
  try {
    constraintsRewritten(withFirstMember(plain, "\"$schema\": {}"));
    ADD_FAILURE() << "an object as $schema was accepted";
  } catch (HEXAll const& error) {
    EXPECT_EQ(refusal(error), "75-571|c.json|#/properties/%24schema|type|#/%24schema");
  }
}

}  // namespace
