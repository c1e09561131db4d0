#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

#include "ConstrSourceScanner.h"
#include "TestSupport.h"

using kpe::constraints::ConstrSourceScanner;

namespace {

std::string readerTestFile(std::string const& name) {
  return tarvo_test::dataPath("constraints_reader/" + name);
}

// The search as a person would do it with the file open: line by line from the start for
// the quoted name, then from the next line on for the quoted key.
ConstrSourceScanner::Position searchByLines(std::string const& file, std::string const& name, std::string const* key) {
  std::ifstream in(file, std::ios_base::binary);
  std::string line;
  int number = 0;
  std::string needle = '"' + name + '"';
  std::string::size_type at = std::string::npos;
  while (at == std::string::npos && std::getline(in, line)) {
    ++number;
    at = line.find(needle);
  }
  if (at != std::string::npos && key != nullptr) {
    needle = '"' + *key + '"';
    at = std::string::npos;
    while (at == std::string::npos && std::getline(in, line)) {
      ++number;
      at = line.find(needle);
    }
  }
  ConstrSourceScanner::Position position;
  if (at == std::string::npos) return position;
  position.line = number;
  position.column = static_cast<int>(at) + 1;
  return position;
}

void expectPosition(ConstrSourceScanner::Position const& position, int line, int column) {
  EXPECT_EQ(line, position.line);
  EXPECT_EQ(column, position.column);
}

}  // namespace

TEST(ConstrSourceScanner, FindsTheFirstQuotedNameThenTheKeyOnALaterLine) {
  ConstrSourceScanner scanner(readerTestFile("scan_positions.json"));
  expectPosition(scanner.find("a", "tile"), 4, 7);
  // The key on the name's own line is not seen.
  expectPosition(scanner.find("a", "colocated_nodes"), 0, 0);
  // "b" first stands in a's list, so b's tile is taken for a's.
  expectPosition(scanner.find("b", "tile"), 4, 7);
  expectPosition(scanner.find("b"), 3, 32);
  expectPosition(scanner.find("g1"), 10, 49);
  expectPosition(scanner.find("missing", "tile"), 0, 0);
  expectPosition(scanner.find("a", "missing"), 0, 0);
  // A quote inside the text is searched for literally, escape and all.
  expectPosition(scanner.find("say \\\"hi\\\""), 7, 2);
  EXPECT_EQ(ConstrSourceScanner::State::Loaded, scanner.load());
}

TEST(ConstrSourceScanner, AgreesWithALineByLineSearchForEveryPair) {
  std::string const file = readerTestFile("scan_positions.json");
  std::vector<std::string> const texts = {"a",
                                          "b",
                                          "y",
                                          "b\\",
                                          "x\\",
                                          "",
                                          "tile",
                                          "name",
                                          "column",
                                          "g1",
                                          "colocated_nodes",
                                          "areaGroup",
                                          "say \\\"hi\\\"",
                                          "\"",
                                          "b\"",
                                          "nope",
                                          "NodeConstraints",
                                          ": ",
                                          "1 } },\r"};
  ConstrSourceScanner scanner(file);
  for (std::string const& name : texts) {
    ConstrSourceScanner::Position expected = searchByLines(file, name, nullptr);
    ConstrSourceScanner::Position found = scanner.find(name);
    EXPECT_EQ(expected.line, found.line) << name;
    EXPECT_EQ(expected.column, found.column) << name;
    for (std::string const& key : texts) {
      expected = searchByLines(file, name, &key);
      found = scanner.find(name, key);
      EXPECT_EQ(expected.line, found.line) << name << " / " << key;
      EXPECT_EQ(expected.column, found.column) << name << " / " << key;
    }
  }
}

// The file is read in blocks: lines that cross from one block into the next, a line longer
// than several blocks and a last line without a newline are found like any other.
TEST(ConstrSourceScanner, LinesAcrossReadBlocksAreFoundWhole) {
  int const shortLines = 6000;
  std::string text = "{\n";
  for (int i = 0; i < shortLines; ++i)
    text += "  \"k" + std::to_string(i) + "\": \"v\",\n";
  std::string const longLine = "  \"long\": \"" + std::string(300000, 'x') + "\", \"tail\": 1,";
  text += longLine + "\n  \"k7\": 2,\n  \"end\": 3}";
  tarvo_test::TempDir dir;
  std::string const file = dir.file("blocks.json");
  tarvo_test::writeFile(file, text);

  ConstrSourceScanner scanner(file);
  for (int i = 0; i < shortLines; ++i) {
    ConstrSourceScanner::Position const found = scanner.find("k" + std::to_string(i));
    if (found.line != i + 2 || found.column != 3) {
      ADD_FAILURE() << "k" << i << " at " << found.line << ":" << found.column;
      break;
    }
  }
  int const longLineNumber = shortLines + 2;
  int const tailColumn = static_cast<int>(longLine.find("\"tail\"")) + 1;
  expectPosition(scanner.find("long"), longLineNumber, 3);
  expectPosition(scanner.find("k5999", "tail"), longLineNumber, tailColumn);
  expectPosition(scanner.find("long", "k7"), longLineNumber + 1, 3);
  expectPosition(scanner.find("k7", "end"), longLineNumber + 2, 3);
  expectPosition(scanner.find("tail\": 1,\n  \"k7"), 0, 0);
  expectPosition(scanner.find(", \"tail"), longLineNumber, tailColumn - 3);
}

TEST(ConstrSourceScanner, FilesThatCannotBeScannedGiveNoPosition) {
  ConstrSourceScanner noName("");
  EXPECT_EQ(ConstrSourceScanner::State::NoFileName, noName.load());
  expectPosition(noName.find("a", "tile"), 0, 0);

  ConstrSourceScanner directory(readerTestFile(""));
  EXPECT_EQ(ConstrSourceScanner::State::NotRegularFile, directory.load());

  ConstrSourceScanner missing(readerTestFile("no_such_file.json"));
  EXPECT_EQ(ConstrSourceScanner::State::NotRegularFile, missing.load());
  expectPosition(missing.find("a"), 0, 0);
}
