#include <gtest/gtest.h>

#include <boost/filesystem.hpp>

#include <sstream>

#include "HCRapidJsonReadWriteUtils.h"
#include "HEXAll.h"
#include "JsonDocumentFrame.h"
#include "NOCJsonReadWriteUtils.h"
#include "TestSupport.h"

namespace {

typedef JsonDocumentFrame Frame;
using tarvo_test::dataPath;

std::string canonical(std::string const& path) { return Frame::canonicalName(path); }

using tarvo_test::thrown;

void loadText(std::string const& text, std::string const& schema, Frame::Document& doc) {
  std::istringstream in(text);
  Frame::load(in, "doc.json", schema, Frame::Opener::PlainFile, doc);
}

TEST(DocumentFrame, LoadValidatesAndReportsTheInvalidPlaceAsAPointer) {
  std::string const schema = dataPath("frame/items.schema.json");
  Frame::Document doc;
  loadText(R"({"items": [{"name": "a", "size": 1}]})", schema, doc);
  EXPECT_EQ(doc["items"][0]["size"].GetInt(), 1);
  EXPECT_EQ(thrown([&] { loadText(tarvo_test::readFile(dataPath("frame/invalid.json")), schema, doc); }),
            "8-101|doc.json|#/items/1/size");
  EXPECT_EQ(thrown([&] { loadText(R"({"items": [], "~odd/key": 1})", schema, doc); }), "8-101|doc.json|#/~0odd~1key");
  EXPECT_EQ(thrown([&] { loadText("{\"items\": []}\n{}", schema, doc); }),
            "8-101|doc.json|line 2, column 1: The document root must not be followed by other values.");
  EXPECT_EQ(thrown([&] { loadText("", schema, doc); }), "8-101|doc.json|line 1, column 1: The document is empty.");
}

TEST(DocumentFrame, SchemaFailuresNameTheCanonicalSchemaPath) {
  Frame::Document doc;
  std::string const missing = dataPath("frame/../frame/no-such.schema.json");
  EXPECT_EQ(thrown([&] { loadText("{}", missing, doc); }), "8-102|" + canonical(missing));
  EXPECT_EQ(thrown([&] { loadText("{}", dataPath("frame"), doc); }), "8-102|" + canonical(dataPath("frame")));
  std::string const broken = dataPath("frame/broken.schema.json");
  EXPECT_EQ(thrown([&] { loadText("{}", broken, doc); }),
            "8-103|" + canonical(broken) + "|line 3, column 3: Missing a comma or '}' after an object member.");
  // A text that parses but is no schema never reaches the validator, which may crash on one.
  std::string const notSchema = dataPath("frame/not-a-schema.json");
  EXPECT_EQ(thrown([&] { loadText("{}", notSchema, doc); }),
            "8-103|" + canonical(notSchema) +
                "|not a draft-04 JSON schema: the value at #/properties/a/type fails the meta-schema's \"anyOf\"");
}

TEST(DocumentFrame, ReaderFileFormReportsCanonicalNameAndPassesTheGivenOne) {
  std::string const missing = dataPath("frame/./missing.json");
  bool called = false;
  auto streamForm = [&](std::istream&, std::string const&) { return called = true; };
  EXPECT_EQ(thrown([&] { Frame::readFile(missing, Frame::Opener::PlainFile, streamForm); }),
            "8-100|" + canonical(missing));
  EXPECT_EQ(thrown([&] { Frame::readFile(dataPath("frame"), Frame::Opener::AutoDetect, streamForm); }),
            "8-100|" + canonical(dataPath("frame")));
  EXPECT_FALSE(called);

  std::string const given = dataPath("frame/../frame/trailing-comma.json");
  EXPECT_EQ(thrown([&] {
              Frame::readFile(given, Frame::Opener::PlainFile, [](std::istream& in, std::string const& name) {
                Frame::Document doc;
                Frame::parse(in, name, doc);
                return true;
              });
            }),
            "8-101|" + given + "|line 4, column 3: Invalid value.");
}

TEST(DocumentFrame, AutoDetectReadsCompressedFiles) {
  Frame::Document doc;
  bool const result = Frame::readFile(dataPath("frame/valid.json.gz"), Frame::Opener::AutoDetect,
                                      [&](std::istream& in, std::string const& name) {
                                        Frame::load(in, name, dataPath("frame/items.schema.json"),
                                                    Frame::Opener::AutoDetect, doc);
                                        return true;
                                      });
  EXPECT_TRUE(result);
  EXPECT_STREQ(doc["items"][0]["name"].GetString(), "zipped");
}

Frame::Document parsed(char const* text) {
  Frame::Document doc;
  doc.Parse(text);
  return doc;
}

TEST(DocumentFrame, WriteStopsAtTheFirstInvalidValueAndReportsTheDocument) {
  std::string const schema = dataPath("frame/items.schema.json");
  tarvo_test::MessageCapture capture;
  std::ostringstream good;
  EXPECT_TRUE(Frame::write(good, parsed(R"({"items": [{"name": "a", "size": 1}]})"), schema, "NoC Solution"));
  EXPECT_EQ(good.str(),
            "{\n  \"items\": [\n    {\n      \"name\": \"a\",\n      \"size\": 1\n    }\n  ]\n}");
  std::ostringstream bad;
  EXPECT_FALSE(Frame::write(bad, parsed(R"({"items": [{"name": "a", "size": 1.5}], "more": 1})"), schema,
                            "NoC Solution"));
  EXPECT_EQ(bad.str(), "{\n  \"items\": [\n    {\n      \"name\": \"a\",\n      \"size\"");
  EXPECT_EQ(capture.summary(), (std::vector<std::string>{"75-585(NoC Solution)"}));
  // A missing schema is a failure of the installation, not of the document: it throws.
  EXPECT_EQ(thrown([&] { Frame::write(bad, parsed("{}"), dataPath("frame/none.json"), "x"); }),
            "8-102|" + canonical(dataPath("frame/none.json")));
}

TEST(DocumentFrame, ValidatedWritingSurvivesEverySchemaCombinator) {
  auto const schema = Frame::loadSchema(dataPath("frame/combinators.schema.json"));
  Frame::Document const doc = parsed(R"({"kind": "b", "value": "v", "low": 1, "high": 2, "x-note": "n"})");
  std::ostringstream validated;
  std::ostringstream plain;
  EXPECT_TRUE(Frame::writeValidated(validated, doc, *schema));
  Frame::writePretty(plain, doc);
  EXPECT_EQ(validated.str(), plain.str());

  Frame::SchemaViolation violation;
  std::ostringstream out;
  EXPECT_FALSE(Frame::writeValidated(out, parsed(R"({"kind": "a", "high": 2})"), *schema,
                                     rapidjson::kFormatDefault, &violation));
  EXPECT_EQ(violation.keyword, "dependencies");
  EXPECT_EQ(violation.documentPointer, "#");
  EXPECT_FALSE(Frame::validate(parsed(R"({"kind": "c"})"), *schema, &violation));
  EXPECT_EQ(violation.documentPointer, "#/kind");
  EXPECT_EQ(violation.keyword, "oneOf");
}

TEST(DocumentFrame, WriterFileFormFailsQuietlyOnAnUnopenableFile) {
  tarvo_test::TempDir dir;
  bool called = false;
  EXPECT_FALSE(Frame::writeFile(dir.file("no/such/dir/out.json"), [&](std::ostream&) { return called = true; }));
  EXPECT_FALSE(called);
  EXPECT_TRUE(Frame::writeFile(dir.file("out.json"), [](std::ostream& out) {
    out << "{}";
    return true;
  }));
  EXPECT_EQ(tarvo_test::readFile(dir.file("out.json")), "{}");
}

TEST(SchemaPaths, EveryKindLiesWhereTheDataDirectoryHoldsIt) {
  tarvo_test::TempDir data;
  boost::filesystem::create_directories(data.path() + "/parts/zorvex/common/noc/schemas");
  boost::filesystem::create_directories(data.path() + "/parts/zorvex/common/tellura");
  for (char const* file : {"noc/schemas/traffic.json", "noc/schemas/solution.json", "noc/schemas/constraints.json",
                           "tellura/LogicalArchSchema.json", "tellura/TQSolutionSchema.json"})
    tarvo_test::writeFile(data.path() + "/parts/zorvex/common/" + file, "{}");
  setenv("QDS_DATA_DIR", ("/nonexistent:" + data.path()).c_str(), 1);
  std::string const common = data.path() + "/parts/zorvex/common/";
  EXPECT_EQ(NOCJsonReadWriteUtils::getTrafficJsonSchemaFile(), common + "noc/schemas/traffic.json");
  EXPECT_EQ(NOCJsonReadWriteUtils::getSolutionJsonSchemaFile(), common + "noc/schemas/solution.json");
  EXPECT_EQ(NOCJsonReadWriteUtils::getConstraintsJsonSchemaFile(), common + "noc/schemas/constraints.json");
  EXPECT_EQ(NOCJsonReadWriteUtils::getKPEShimConstraintsJsonSchemaFile(), common + "noc/schemas/constraints.json");
  EXPECT_EQ(NOCJsonReadWriteUtils::getLogicalArchJsonSchemaFile(), common + "tellura/LogicalArchSchema.json");
  EXPECT_EQ(NOCJsonReadWriteUtils::getTQSolutionJsonSchemaFile(), common + "tellura/TQSolutionSchema.json");
  unsetenv("QDS_DATA_DIR");
}

TEST(SchemaPaths, SchemaFilesAreCheckedAgainstTheMetaSchema) {
  EXPECT_NO_THROW(NOCJsonReadWriteUtils::validateLogicalArchSchemaFile(dataPath("frame/items.schema.json")));
  std::string const notSchema = dataPath("frame/not-a-schema.json");
  EXPECT_EQ(thrown([&] { NOCJsonReadWriteUtils::validateTrafficSchemaFile(notSchema); }),
            "8-103|" + notSchema +
                "|not a draft-04 JSON schema: the value at #/properties/a/type fails the meta-schema's \"anyOf\"");
  EXPECT_EQ(thrown([&] { NOCJsonReadWriteUtils::validateSolutionSchemaFile(dataPath("frame/missing.json")); }),
            "8-102|" + dataPath("frame/missing.json"));
}

TEST(PortMessages, SendAndGoOn) {
  tarvo_test::MessageCapture capture;
  NOCJsonReadWriteUtils::issueInvalidPortForLogicalSlave("PORT9", "ddr0");
  NOCJsonReadWriteUtils::issueInvalidPortType("PC2");
  EXPECT_EQ(capture.summary(), (std::vector<std::string>{"73-30(PORT9|ddr0)", "73-448(PC2)"}));
  EXPECT_EQ(capture.messages()[0].getMask(), ComMsgMgr::MSG_CRITICAL_WARNING);
}

}  // namespace
