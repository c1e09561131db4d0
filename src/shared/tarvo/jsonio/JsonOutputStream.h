#ifndef TARVO_JSONOUTPUTSTREAM_H
#define TARVO_JSONOUTPUTSTREAM_H

#include <cassert>
#include <cstddef>
#include <ostream>
#include <vector>

namespace tarvo {
namespace jsonio {

// Output: collects text and hands it to the stream in large blocks. Flush() passes the text
// on and flushes the stream; the destructor passes on what is left.
class JsonOutputStream {
 public:
  typedef char Ch;

  explicit JsonOutputStream(std::ostream& out, std::size_t blockSize = 1 << 16);
  ~JsonOutputStream();
  JsonOutputStream(JsonOutputStream const&) = delete;
  JsonOutputStream& operator=(JsonOutputStream const&) = delete;

  void Put(Ch c) {
    if (m_used == m_buffer.size()) drain();
    m_buffer[m_used++] = c;
  }
  void Flush();

  // Room for `count` more characters, so that they can be put without a check each.
  void Reserve(std::size_t count) {
    if (m_used + count <= m_buffer.size()) return;
    drain();
    if (count > m_buffer.size()) m_buffer.resize(count);
  }
  void PutUnchecked(Ch c) { m_buffer[m_used++] = c; }

  Ch Peek() const {
    assert(false);
    return '\0';
  }
  Ch Take() {
    assert(false);
    return '\0';
  }
  std::size_t Tell() const {
    assert(false);
    return 0;
  }
  Ch* PutBegin() {
    assert(false);
    return nullptr;
  }
  std::size_t PutEnd(Ch*) {
    assert(false);
    return 0;
  }

 private:
  void drain();

  std::ostream& m_out;
  std::vector<Ch> m_buffer;
  std::size_t m_used = 0;
};

// RapidJSON's writers reserve room before a string and then put without checks, through
// these; found by argument-dependent lookup.
inline void PutReserve(JsonOutputStream& stream, std::size_t count) {
  stream.Reserve(count);
}
inline void PutUnsafe(JsonOutputStream& stream, char c) {
  stream.PutUnchecked(c);
}

}  // namespace jsonio
}  // namespace tarvo

#endif
