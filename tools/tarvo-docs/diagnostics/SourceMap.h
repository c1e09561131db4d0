#ifndef TARVO_DOCS_SOURCEMAP_H
#define TARVO_DOCS_SOURCEMAP_H

#include <cstddef>
#include <string>
#include <vector>

namespace tarvo_diagnostics {

// The text of one JSON document and the places in it of the values that a diagnostic asks
// for. Nothing is scanned until asked: `locate` answers all its queries in one pass over the
// text, so that places cost one pass, and only when something is reported.
class SourceMap {
 public:
  // A JSON pointer as its decoded steps; array indices are decimal texts.
  using Pointer = std::vector<std::string>;
  static constexpr std::size_t npos = std::string::npos;

  // 1-based; `column` counts bytes, `characterColumn` UTF-8 characters.
  struct Position {
    std::size_t line = 0;
    std::size_t column = 0;
    std::size_t characterColumn = 0;
  };

  // The value at `pointer`; `occurrence` picks among members of one object with the same
  // key (0 is the first, the one readers use). Steps before the last follow first members.
  struct Query {
    Pointer pointer;
    std::size_t occurrence = 0;
  };
  // Byte offsets of the member's key (npos for array items and the root) and of its value.
  struct Place {
    std::size_t key = npos;
    std::size_t value = npos;
  };
  // A string of the text equal to `name`: a key or a value when `memberKey` is empty,
  // otherwise only the value of a member named `memberKey` or an item of its array.
  // `occurrence` counts the matches before the one wanted.
  struct NameQuery {
    std::string name;
    std::string memberKey;
    std::size_t occurrence = 0;
  };
  struct Answers {
    std::vector<Place> places;       // one per Query, in order
    std::vector<std::size_t> names;  // one offset per NameQuery, npos when not found
  };

  explicit SourceMap(std::string text) : m_text(std::move(text)) {}

  std::string const& text() const { return m_text; }
  // Where a byte offset lies; an offset at or behind the end gives the end.
  Position positionOf(std::size_t offset) const;
  // The byte offset of a 1-based line and byte column (clamped to the text).
  std::size_t offsetOf(std::size_t line, std::size_t column) const;
  // Answers every query in one pass over the text. A text that is no JSON is scanned as far
  // as it is; queries behind that stay unanswered.
  Answers locate(std::vector<Query> const& queries, std::vector<NameQuery> const& names = {}) const;

  // "#/a~1b/%24x" (the library's URI fragment form) as steps {"a/b", "$x"}.
  static Pointer pointerFromUriFragment(std::string const& fragment);
  // The text of a JSON string body (between its quotes) with the escapes decoded.
  static std::string decodeString(char const* begin, char const* end);

 private:
  std::string m_text;
  void indexLines() const;

  mutable std::vector<std::size_t> m_lineStarts;  // built when a position is first asked for
};

}  // namespace tarvo_diagnostics

#endif
