#ifndef TARVO_DOCS_JSONNESTINGWATCH_H
#define TARVO_DOCS_JSONNESTINGWATCH_H

#include <cstddef>
#include <ostream>
#include <streambuf>

namespace tarvo_docs {

// Passes JSON text on to another stream and follows its nesting as it goes, so that a writer
// that stops in the middle of a document (and still reports success) is caught without keeping
// or parsing the text again. The text is a writer's, hence well formed up to where it stops.
class JsonNestingWatch : public std::streambuf {
 public:
  explicit JsonNestingWatch(std::ostream& target) : m_target(*target.rdbuf()) {}

  // True when the text holds one value and every array, object and string it opened is closed.
  bool whole() const { return m_opened && m_depth == 0 && !m_inString; }
  std::size_t bytes() const { return m_bytes; }

 protected:
  int_type overflow(int_type c) override;
  std::streamsize xsputn(char const* text, std::streamsize size) override;
  int sync() override { return m_target.pubsync(); }

 private:
  void follow(char const* text, std::size_t size);

  std::streambuf& m_target;
  std::size_t m_bytes = 0;
  std::size_t m_depth = 0;
  bool m_opened = false;
  bool m_inString = false;
  bool m_escaped = false;
};

}  // namespace tarvo_docs

#endif
