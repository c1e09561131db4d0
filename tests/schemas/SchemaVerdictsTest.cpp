#include <gtest/gtest.h>

#include <boost/filesystem.hpp>

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

#include "HEXAll.h"
#include "JsonDocumentFrame.h"
#include "TestSupport.h"

// The schemas carry descriptions for people and editors; none of that may change which
// document they accept. Every document of the test data and the examples is loaded against
// every installed schema, and the verdicts are compared with the table recorded before the
// descriptions were written.

namespace {

namespace fs = boost::filesystem;
typedef JsonDocumentFrame Frame;

std::string const kSourceDir = TARVO_SOURCE_DIR;

struct SchemaKind {
  char const* name;
  char const* schema;  // below the source tree
  Frame::Opener opener;
};

// The traffic and solution readers open gzip files; the others read plain text only.
SchemaKind const kKinds[] = {
    {"traffic", "data/parts/zorvex/common/noc/schemas/traffic.json", Frame::Opener::AutoDetect},
    {"solution", "data/parts/zorvex/common/noc/schemas/solution.json", Frame::Opener::AutoDetect},
    {"noc-constraints", "data/parts/zorvex/common/noc/schemas/constraints.json", Frame::Opener::PlainFile},
    {"logical-arch", "data/parts/zorvex/common/tellura/LogicalArchSchema.json", Frame::Opener::PlainFile},
    {"compiler-solution", "data/parts/zorvex/common/tellura/TQSolutionSchema.json", Frame::Opener::PlainFile},
    {"constraints", "data/kpetools_constr_schema.json", Frame::Opener::PlainFile},
    {"device", "data/devices/device.schema.json", Frame::Opener::PlainFile},
    {"metadata", "data/parts/zorvex/common/tellura/ProjectMetaDataSchema.json", Frame::Opener::PlainFile},
};

bool endsWith(std::string const& text, std::string const& end) {
  return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

// Every JSON document below tests/data and examples/, gzip ones included, relative to the
// source tree and in byte order.
std::vector<std::string> documents() {
  std::vector<std::string> found;
  for (char const* top : {"tests/data", "examples"})
    for (fs::recursive_directory_iterator it(kSourceDir + "/" + top), end; it != end; ++it) {
      std::string const path = it->path().string();
      if (fs::is_regular_file(it->path()) && (endsWith(path, ".json") || endsWith(path, ".json.gz")))
        found.push_back(path.substr(kSourceDir.size() + 1));
    }
  std::sort(found.begin(), found.end());
  return found;
}

// Where in the schema a parsed document fails, or nothing when it passes or does not parse.
std::string violationPlace(std::string const& text, std::string const& schema) {
  Frame::Document doc;
  if (doc.Parse(text.c_str(), text.size()).HasParseError()) return std::string();
  Frame::SchemaViolation violation;
  if (Frame::validate(doc, *Frame::loadSchema(schema), &violation)) return std::string();
  return " at " + violation.schemaPointer + " " + violation.keyword;
}

// "accepted", or the message id with its arguments that the load sequence refuses the
// document with and, for a schema violation, the schema place and keyword: a rule made
// stricter or looser shows as another line.
std::string verdict(std::string const& document, SchemaKind const& kind) {
  std::string const schema = kSourceDir + "/" + kind.schema;
  std::string text;
  try {
    Frame::readFile(kSourceDir + "/" + document, kind.opener, [&](std::istream& in, std::string const& name) {
      std::ostringstream whole;
      whole << in.rdbuf();
      text = whole.str();
      std::istringstream again(text);
      Frame::Document doc;
      Frame::load(again, name, schema, kind.opener, doc);
      return true;
    });
  } catch (HEXAll const& error) {
    std::string refusal = "refused " + error.getMessage().getId();
    for (std::string const& arg : error.getMessage().getArgs())
      refusal += "|" + arg;
    std::string::size_type at;
    while ((at = refusal.find(kSourceDir + "/")) != std::string::npos)
      refusal.erase(at, kSourceDir.size() + 1);
    return refusal + violationPlace(text, schema);
  }
  return "accepted";
}

std::vector<std::string> verdictLines() {
  tarvo_test::MessageCapture const quiet;
  std::vector<std::string> lines;
  for (std::string const& document : documents())
    for (SchemaKind const& kind : kKinds)
      if (!endsWith(document, ".gz") || kind.opener == Frame::Opener::AutoDetect)
        lines.push_back(document + "\t" + kind.name + "\t" + verdict(document, kind));
  return lines;
}

std::vector<std::string> recordedLines() {
  std::istringstream in(tarvo_test::readFile(tarvo_test::dataPath("schema_verdicts.txt")));
  std::vector<std::string> lines;
  for (std::string line; std::getline(in, line);)
    lines.push_back(line);
  return lines;
}

// The lines of `a` that `b` lacks.
std::vector<std::string> missingFrom(std::vector<std::string> a, std::vector<std::string> b) {
  std::sort(a.begin(), a.end());
  std::sort(b.begin(), b.end());
  std::vector<std::string> missing;
  std::set_difference(a.begin(), a.end(), b.begin(), b.end(), std::back_inserter(missing));
  return missing;
}

TEST(SchemaVerdicts, EveryDocumentIsAcceptedOrRefusedAsRecorded) {
  std::vector<std::string> const now = verdictLines();
  if (char const* out = std::getenv("TARVO_RECORD_SCHEMA_VERDICTS")) {
    std::string table;
    for (std::string const& line : now)
      table += line + "\n";
    tarvo_test::writeFile(out, table);
  }
  std::vector<std::string> const recorded = recordedLines();
  ASSERT_GT(recorded.size(), 400u);
  EXPECT_EQ(missingFrom(recorded, now), std::vector<std::string>()) << "verdicts that changed or went";
  EXPECT_EQ(missingFrom(now, recorded), std::vector<std::string>()) << "verdicts that are new";
}

}  // namespace
