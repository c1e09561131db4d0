#ifndef CONSTRSOURCESCANNER_H
#define CONSTRSOURCESCANNER_H

#include <cstdint>
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
// The file is read once, on the first search, and every quoted text of it is indexed, so
// that each search is a hash look-up and a binary search rather than a pass over the file.
// The occurrences of all texts share one array, grouped by text (two passes over the text in
// memory: count, then place), which keeps the index near eight bytes per quoted text.
// Searches for texts with a double quote inside fall back to a line-by-line search.
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

  // Calls visit(text, line, column) for the text between each pair of neighbouring quotes
  // on a line, in file order.
  template <typename Visit>
  void forEachQuoted(Visit visit) const;
  void index();
  // The first match of the quoted text on a line after `afterLine`.
  bool findAfter(std::string const& text, std::uint32_t afterLine, Occurrence& found) const;
  bool searchLines(std::string const& needle, std::uint32_t afterLine, Occurrence& found) const;

  std::string m_fileName;
  State m_state = State::NotLoaded;
  std::string m_text;
  std::unordered_map<std::string_view, Postings> m_quoted;
  std::vector<Occurrence> m_occurrences;
};

}  // namespace constraints
}  // namespace kpe

#endif
