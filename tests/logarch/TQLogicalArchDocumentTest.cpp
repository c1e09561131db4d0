#include <gtest/gtest.h>

#include <boost/filesystem.hpp>

#include <cstdlib>
#include <sstream>

#include "HDGUIStatus.h"
#include "HEXAll.h"
#include "JsonDocumentFrame.h"
#include "LogicalArchTestModels.h"
#include "TQLogicalArchReader.h"
#include "TQLogicalArchWriter.h"
#include "TestSupport.h"

using namespace Tarvo::Frameworks;
using logarch_test::describe;
using tarvo_test::dataPath;
using tarvo_test::readFile;

namespace {

// The id and arguments of the message that `action` throws as an HEXAll.
using tarvo_test::thrown;

// Puts a directory in front of the data directories while it lives.
class DataDirOverride {
 public:
  explicit DataDirOverride(std::string const& dir) {
    char const* old = std::getenv("QDS_DATA_DIR");
    m_hadOld = old != nullptr;
    if (m_hadOld) m_old = old;
    setenv("QDS_DATA_DIR", dir.c_str(), 1);
  }
  ~DataDirOverride() {
    if (m_hadOld)
      setenv("QDS_DATA_DIR", m_old.c_str(), 1);
    else
      unsetenv("QDS_DATA_DIR");
  }

 private:
  bool m_hadOld = false;
  std::string m_old;
};

std::string const kSchemaInData = "parts/zorvex/common/tellura/LogicalArchSchema.json";

void readText(std::string const& text, TQLogicalArchModel& model) {
  std::istringstream in(text);
  TQLogicalArchReader::readFromJsonFile(in, "doc.json", model);
}

std::string written(TQLogicalArchModel const& model, std::string const& prefix = std::string()) {
  std::ostringstream out;
  HDGUIStatus status;
  EXPECT_TRUE(TQLogicalArchWriter::writeToJsonFile(prefix, out, model, status));
  return out.str();
}

}  // namespace

TEST(TQLogicalArchDocument, AFullModelWritesTheDocumentThatReadsBackIntoAnEqualModel) {
  TQLogicalArchModel built;
  logarch_test::buildFullModel(built);
  std::string const expected = readFile(dataPath("logarch/full.json"));
  EXPECT_EQ(written(built), expected);

  TQLogicalArchModel read;
  HDGUIStatus status;
  EXPECT_TRUE(TQLogicalArchReader::readFromJsonFile(dataPath("logarch/full.json"), read, status));
  EXPECT_EQ(describe(read), describe(built));
  EXPECT_EQ(written(read), expected);
  EXPECT_EQ(status.getPercent(), 100.0);
  EXPECT_FALSE(status.getMessageSet());
  // Read connections are in the list but not yet in the map.
  EXPECT_FALSE(read.hasLogicalConnection("top/c0"));
}

TEST(TQLogicalArchDocument, HandMadeDocumentsAreTakenAsFarAsTheyMakeSense) {
  TQLogicalArchModel model;
  std::ifstream in(dataPath("logarch/hand_made.json"));
  TQLogicalArchReader::readFromJsonFile(in, "hand_made.json", model);
  EXPECT_EQ(describe(model),
            "model app||dev_a|plat_b\n"
            "plip pl hw= vlnv= ck=ck sdf= ann=\n"
            "  p_out unknown unknown w=0/0 i=7 f=250 r=0 t=0 tf= ann=[] hw= sdf=[] vlnv= ch= conn=c_old\n"
            "kpeip kpe hw= vlnv=v:kpe ann= dev={}\n"
            "  k_in stream slave w=0/32 i=0 f=0 r=0 t=0 tf= ann=[one] hw= sdf=[s1] vlnv= ch= conn=c_old\n"
            "  k_out unknown unknown w=0/0 i=0 f=0 r=0 t=1 tf= ann=[a,b] hw= sdf=[] vlnv= ch= conn=c_rest\n"
            "nocip noc hw= vlnv= ann= ip=mem\n"
            "  n0 unknown unknown w=0/0 i=0 f=0 r=0 t=0 tf= ann=[] hw=h0 sdf=[] vlnv= ch=ch conn=c_odd\n"
            "nocip noc_s hw= vlnv= ann= ip=stream\n"
            "nocip noc_x hw= vlnv= ann= ip=unknown\n"
            "conn c_old stream kpe_to_pl unknown unknown kpe.k_in -> pl.p_out\n"
            "conn c_old unknown noc_to_kpe read-only virtual - ->\n"
            "conn c_odd unknown unknown unknown unknown - -> noc.n0\n"
            "conn c_rest unknown pl_to_kpe unknown unknown kpe.k_out ->\n"
            "conn c_noc mem kpe_to_noc write-only physical - ->\n");
  // Older direction texts, a missing NoC type, "parameterIndex" and "clkFreq" come back in
  // the writer's own forms.
  EXPECT_EQ(written(model), readFile(dataPath("logarch/hand_made.written.json")));

  TQLogicalArchModel kept;
  kept.setSchema("kept");
  kept.setAppID("replaced");
  readText(readFile(dataPath("logarch/hand_made.json")), kept);
  EXPECT_EQ(kept.getSchema(), "kept");
  EXPECT_EQ(kept.getAppID(), "app");
}

TEST(TQLogicalArchDocument, ReadingAgainAddsOnlyTheConnectionsAgain) {
  TQLogicalArchModel model;
  TQLogicalArchReader::readFromJsonFile(dataPath("logarch/full.json"), model);
  TQLogicalArchReader::readFromJsonFile(dataPath("logarch/full.json"), model);
  std::vector<TQLogicalConnection*> connections;
  EXPECT_EQ(model.getInstances().size(), 3u);
  EXPECT_EQ(model.getLogicalInstance("top/kpe")->getPorts().size(), 2u);
  EXPECT_EQ(model.getLogicalConnections(connections), 6u);

  TQLogicalArchModel empty;
  HDGUIStatus status;
  std::istringstream in("{}");
  EXPECT_TRUE(TQLogicalArchReader::readFromJsonFile(in, "empty.json", empty, status));
  EXPECT_TRUE(empty.isEmpty());
  EXPECT_EQ(status.getPercent(), 100.0);
}

TEST(TQLogicalArchDocument, ReaderFailuresNameTheFileAndThePlace) {
  TQLogicalArchModel model;
  std::string const missing = dataPath("logarch/../logarch/missing.json");
  EXPECT_EQ(thrown([&] { TQLogicalArchReader::readFromJsonFile(missing, model); }),
            "8-100|" + JsonDocumentFrame::canonicalName(missing));

  std::istringstream failed("{}");
  failed.setstate(std::ios_base::failbit);
  EXPECT_EQ(thrown([&] { TQLogicalArchReader::readFromJsonFile(failed, "failed.json", model); }), "8-100|failed.json");
  std::istringstream atEnd("{}");
  atEnd.ignore(10);
  EXPECT_EQ(thrown([&] { TQLogicalArchReader::readFromJsonFile(atEnd, "end.json", model); }), "8-100|end.json");

  EXPECT_EQ(thrown([&] { readText("{\"PL\": {}\n\"KPE\": {}}", model); }),
            "8-101|doc.json|line 2, column 1: Missing a comma or '}' after an object member.");
  EXPECT_EQ(
      thrown([&] {
        readText(
            R"({"appId": "x", "PL": {"p": {"plPorts": {}}}, "KPE": {"k": {"kpeshimPorts": {"a/b": {"dataWidth": -1}}}}})",
            model);
      }),
      "8-101|doc.json|#/KPE/k/kpeshimPorts/a~1b/dataWidth");
  EXPECT_EQ(thrown([&] { readText(R"({"connections": {"c": {"dstPorts": [{"instName": "i"}]}}})", model); }),
            "8-101|doc.json|#/connections/c/dstPorts/0");
  EXPECT_EQ(thrown([&] { readText(R"({"PL": {"p": {"plPorts": {}, "colour": "red"}}})", model); }),
            "8-101|doc.json|#/PL/p/colour");
  // A syntax error is reported before an earlier value that the schema refuses.
  EXPECT_EQ(thrown([&] { readText("{\"KPE\": 1,\n\"PL\": {]}", model); }),
            "8-101|doc.json|line 2, column 8: Missing a name for object member.");
  // The schema is checked before the model is touched.
  EXPECT_TRUE(model.isEmpty());
  EXPECT_EQ(model.getAppID(), "");
}

TEST(TQLogicalArchDocument, BrokenOrMissingSchemaThrowsInReaderAndWriter) {
  tarvo_test::TempDir dir;
  std::string const schema = dir.file(kSchemaInData);
  boost::filesystem::create_directories(schema);
  DataDirOverride data(dir.path());
  TQLogicalArchModel model;
  logarch_test::buildFullModel(model);
  std::ostringstream out;
  std::string const unreadable = "8-102|" + JsonDocumentFrame::canonicalName(schema);
  EXPECT_EQ(thrown([&] { readText("{}", model); }), unreadable);
  EXPECT_EQ(thrown([&] { readText("{\"PL\": }", model); }), "8-101|doc.json|line 1, column 8: Invalid value.");
  EXPECT_EQ(thrown([&] { TQLogicalArchWriter::writeToJsonFile(out, model); }), unreadable);
  EXPECT_EQ(out.str(), "");

  boost::filesystem::remove(schema);
  tarvo_test::writeFile(schema, "{\"type\": \"object\",}");
  std::string const broken =
      "8-103|" + JsonDocumentFrame::canonicalName(schema) + "|line 1, column 19: Missing a name for object member.";
  EXPECT_EQ(thrown([&] { readText("{}", model); }), broken);
  EXPECT_EQ(thrown([&] { TQLogicalArchWriter::writeToJsonFile(out, model); }), broken);
}

TEST(TQLogicalArchWriter, EmptyModelWritesNothingAndSectionsOnlyForKindsPresent) {
  TQLogicalArchModel model;
  model.setAppID("app");
  std::ostringstream out;
  EXPECT_FALSE(TQLogicalArchWriter::writeToJsonFile(out, model));
  EXPECT_EQ(out.str(), "");

  model.addLogicalConnection("lonely");
  EXPECT_EQ(written(model),
            "{\n"
            "  \"appId\": \"app\",\n"
            "  \"connections\": {\n"
            "    \"lonely\": {}\n"
            "  }\n"
            "}");
}

TEST(TQLogicalArchWriter, HierarchyPrefixKeepsOneSubHierarchyUnderShortNames) {
  TQLogicalArchModel model;
  TQLogicalTQIPInstance& inside = *model.addTQIPInstance("a/b/x");
  model.addShimPort("s", inside);
  model.addTQIPInstance("a/b/y/z");
  model.addTQIPInstance("a/bc");
  TQLogicalNOCIPInstance& outside = *model.addNOCIPInstance("q/a/b/n");
  model.addNOCPort("n", outside);
  model.addPLIPInstance("z/p");
  TQLogicalConnection& kept = *model.addLogicalConnection("a/b/c1");
  kept.setSrcPort(inside.getLogicalPort("s"));
  kept.addDstPort(outside.getLogicalPort("n"));
  model.addLogicalConnection("x/a/b/c2");

  EXPECT_EQ(written(model, "a/b"),
            "{\n"
            "  \"KPE\": {\n"
            "    \"x\": {\n"
            "      \"kpeshimPorts\": {\n"
            "        \"s\": {\n"
            "          \"parameterIndex\": 0\n"
            "        }\n"
            "      }\n"
            "    },\n"
            "    \"y/z\": {\n"
            "      \"kpeshimPorts\": {}\n"
            "    },\n"
            "    \"c\": {\n"
            "      \"kpeshimPorts\": {}\n"
            "    }\n"
            "  },\n"
            "  \"NoC\": {},\n"
            "  \"PL\": {},\n"
            "  \"connections\": {\n"
            "    \"c1\": {\n"
            "      \"srcPort\": {\n"
            "        \"instName\": \"x\",\n"
            "        \"portName\": \"s\"\n"
            "      },\n"
            "      \"dstPorts\": [\n"
            "        {\n"
            "          \"instName\": \"q/n\",\n"
            "          \"portName\": \"n\"\n"
            "        }\n"
            "      ]\n"
            "    }\n"
            "  }\n"
            "}");

  TQLogicalArchModel small;
  small.setPlatform("p");
  small.addPLIPInstance("ab/c");
  EXPECT_EQ(written(small, "a"),
            "{\n  \"platform\": \"p\",\n  \"PL\": {\n    \"bc\": {\n      \"plPorts\": {}\n    }\n  }\n}");
  EXPECT_EQ(written(small, "nothing"), "{\n  \"platform\": \"p\",\n  \"PL\": {}\n}");
}

TEST(TQLogicalArchWriter, SchemaMismatchCutsTheTextOffAndStillSucceeds) {
  DataDirOverride data(dataPath("logarch/strict"));
  TQLogicalArchModel model;
  logarch_test::buildFullModel(model);
  std::ostringstream out;
  EXPECT_TRUE(TQLogicalArchWriter::writeToJsonFile(out, model));
  std::string const full = readFile(dataPath("logarch/full.json"));
  std::string const cut = full.substr(0, full.find("\"dataWidth\": 64") + std::string("\"dataWidth\"").size());
  EXPECT_EQ(out.str(), cut);
}

TEST(TQLogicalArchWriter, FileFormWritesTheStreamFormsTextOrFailsQuietly) {
  tarvo_test::TempDir dir;
  TQLogicalArchModel model;
  logarch_test::buildFullModel(model);
  HDGUIStatus status;
  EXPECT_TRUE(TQLogicalArchWriter::writeToJsonFile(dir.file("./out.json"), model, status));
  EXPECT_EQ(readFile(dir.file("out.json")), readFile(dataPath("logarch/full.json")));
  EXPECT_FALSE(TQLogicalArchWriter::writeToJsonFile(dir.file("no/such/dir/out.json"), model));
  EXPECT_EQ(status.getPercent(), 0.0);
}
