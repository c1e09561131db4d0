#ifndef TARVO_CONSTRSOURCESCANNER_H
#define TARVO_CONSTRSOURCESCANNER_H

#include <cstdint>
#include <iosfwd>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "HashSlots.h"

namespace kpe {
namespace constraints {

// Line and column of a text in a constraint file, one-based; 0 where it was not found.
struct ConstrSourcePosition {
  int line = 0;
  int column = 0;
};

// Finds where a constraint stands in its file by text search: the first line that holds the
// object's name in double quotes, then the first later line that holds the key in double
// quotes; the column is the one-based byte offset of the key's match in its line.
//
// The file is read once, in blocks, on the first search, and every quoted text of it is
// indexed, so that each search is a hash look-up and a binary search rather than a pass over
// the file. Only the distinct texts are kept, not the file: each gets a number when first
// seen, and the occurrences of all texts share one array, grouped by text in file order.
// The texts are found through an open-addressing table of small slots, as the pass looks up
// every quoted text of the file. Searches for texts with a double quote inside fall back to a
// line-by-line search of the file.
class ConstrSourceScanner {
 public:
  enum class State { NotLoaded, NoFileName, NotRegularFile, CannotOpen, Loaded };

  typedef ConstrSourcePosition Position;

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
  // A distinct quoted text and where its occurrences lie in m_occurrences, in file order.
  struct Text {
    std::string_view text;
    std::uint32_t begin;
    std::uint32_t count;
  };
  typedef HashSlot Slot;
  // An occurrence and the number of its text, as the pass over the file meets them.
  struct Sighting {
    std::uint32_t number;
    Occurrence occurrence;
  };
  typedef std::vector<Sighting> Pass;

  // `sizeHint`: the file's size, for the room made in advance.
  void index(std::istream& in, std::size_t sizeHint);
  void indexLines(std::string_view text, std::uint32_t& line, Pass& pass);
  void groupByText(Pass const& pass);
  // The number of a text, made for a text not seen before.
  std::uint32_t numberOf(std::string_view text);
  // The text of that content, or null.
  Text const* lookUp(std::string_view text) const;
  // A lasting copy of a text of the file, for m_texts.
  std::string_view keep(std::string_view text);
  // The first match of the quoted text on a line after `afterLine`.
  bool findAfter(std::string const& text, std::uint32_t afterLine, Occurrence& found) const;
  // The first match of the quoted name; the last name found is remembered, as the keys of
  // one object are searched one after the other behind the same name.
  bool findFirst(std::string const& name, Occurrence& found);
  bool searchLines(std::string const& needle, std::uint32_t afterLine, Occurrence& found) const;

  std::string m_fileName;
  State m_state = State::NotLoaded;
  // The distinct quoted texts by number, and the table that finds them: a power of two in
  // size, at most half full.
  std::vector<Text> m_texts;
  std::vector<Slot> m_slots;
  // Grouped by text, in file order within a text; made whole by the pass, never grown.
  std::unique_ptr<Occurrence[]> m_occurrences;
  Text const* m_lastName = nullptr;
  // The bytes of the texts of m_texts, in blocks that never move.
  std::vector<std::unique_ptr<char[]>> m_textBlocks;
  char* m_textNext = nullptr;
  std::size_t m_textFree = 0;
};

}  // namespace constraints
}  // namespace kpe

#endif
