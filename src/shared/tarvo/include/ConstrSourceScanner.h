#ifndef CONSTRSOURCESCANNER_H
#define CONSTRSOURCESCANNER_H

#include <cstdint>
#include <iosfwd>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace kpe {
namespace constraints {

// Finds where a constraint stands in its file by text search: the first line that holds the
// object's name in double quotes, then the first later line that holds the key in double
// quotes; the column is the one-based byte offset of the key's match in its line.
//
// The file is read once, in blocks, on the first search, and every quoted text of it is
// indexed, so that each search is a hash look-up and a binary search rather than a pass over
// the file. Only the distinct texts are kept, not the file: each gets a number when first
// seen, and the occurrences of all texts share one array, grouped by text in file order.
// Searches for texts with a double quote inside fall back to a line-by-line search of the
// file.
class ConstrSourceScanner {
 public:
  enum class State { NotLoaded, NoFileName, NotRegularFile, CannotOpen, Loaded };

  struct Position {
    int line = 0;
    int column = 0;
  };

  explicit ConstrSourceScanner(std::string fileName);
  ConstrSourceScanner(ConstrSourceScanner const&) = delete;
  ConstrSourceScanner& operator=(ConstrSourceScanner const&) = delete;
  ~ConstrSourceScanner();

  // Reads and indexes the file on the first call; later calls return the first outcome.
  State load();
  std::string const& fileName() const { return m_fileName; }

  // Line and column of `key` behind `objName`; both 0 when either is not found or the file
  // could not be loaded.
  Position find(std::string const& objName, std::string const& key);
  // Line and column of `name` alone.
  Position find(std::string const& name);

 private:
  struct Occurrence {
    std::uint32_t line;
    std::uint32_t column;
  };
  // Where the occurrences of one quoted text lie in m_occurrences, in file order.
  struct Postings {
    std::uint32_t begin;
    std::uint32_t count;
  };
  // What the pass over the file collects: the number of the text of each occurrence and
  // the occurrence itself, both in file order.
  struct Pass {
    std::vector<std::uint32_t> numbers;
    std::vector<Occurrence> occurrences;
  };

  void index(std::istream& in);
  void indexLine(std::string_view line, std::uint32_t lineNumber, Pass& pass);
  void groupByText(Pass const& pass);
  // A lasting copy of a text of the file, for a key of m_numbers.
  std::string_view keep(std::string_view text);
  // The first match of the quoted text on a line after `afterLine`.
  bool findAfter(std::string const& text, std::uint32_t afterLine, Occurrence& found) const;
  bool searchLines(std::string const& needle, std::uint32_t afterLine, Occurrence& found) const;

  std::string m_fileName;
  State m_state = State::NotLoaded;
  // Each distinct quoted text and its number, the index into m_postings.
  std::unordered_map<std::string_view, std::uint32_t> m_numbers;
  std::vector<Postings> m_postings;
  std::vector<Occurrence> m_occurrences;
  // The bytes of the texts of m_numbers, in blocks that never move.
  std::vector<std::unique_ptr<char[]>> m_textBlocks;
  char* m_textNext = nullptr;
  std::size_t m_textFree = 0;
};

}  // namespace constraints
}  // namespace kpe

#endif
