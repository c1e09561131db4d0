#ifndef TARVO_JSONINPUTSTREAM_H
#define TARVO_JSONINPUTSTREAM_H

#include <rapidjson/reader.h>

#include <cassert>
#include <cstddef>
#include <cstring>
#include <istream>
#include <vector>

#include "StringScan.h"

namespace tarvo {
namespace jsonio {

// A RapidJSON input stream that reads large blocks from the stream buffer: the standard
// wrapper makes one virtual call per character, which costs a reader two thirds of its speed.
// It keeps the current and the previous block, and counts lines as blocks pass, so that a
// parse error offset can be shown as a line and column without reading the text again.
class JsonInputStream {
 public:
  typedef char Ch;

  struct Position {
    std::size_t line;    // 1-based
    std::size_t column;  // 1-based, in bytes
  };

  explicit JsonInputStream(std::istream& in, std::size_t blockSize = 1 << 16);
  JsonInputStream(JsonInputStream const&) = delete;
  JsonInputStream& operator=(JsonInputStream const&) = delete;

  Ch Peek() const { return *m_current; }
  Ch Take() {
    Ch c = *m_current;
    advance();
    return c;
  }
  std::size_t Tell() const { return m_blockOffset + static_cast<std::size_t>(m_current - m_block.data()); }
  // The next four bytes, or null when fewer remain in the block (encoding detection).
  Ch const* Peek4() const { return m_current + 4 <= m_last ? m_current : nullptr; }

  Ch* PutBegin() {
    assert(false);
    return nullptr;
  }
  void Put(Ch) { assert(false); }
  void Flush() { assert(false); }
  std::size_t PutEnd(Ch*) {
    assert(false);
    return 0;
  }

  // The bytes that can be taken at once: from the current one up to the last of the block,
  // which is left out so that taking them never needs the next block.
  Ch const* runBegin() const { return m_current; }
  Ch const* runEnd() const { return m_last; }
  void takeRun(std::size_t count) {
    assert(count <= static_cast<std::size_t>(m_last - m_current));
    m_current += count;
  }

  // Line and column of a byte offset that lies in the current or the previous block; an
  // older offset gets the start of the previous block's first line.
  Position positionOf(std::size_t offset) const;

 private:
  void advance() {
    if (m_current < m_last)
      ++m_current;
    else if (!m_eof)
      readBlock();
  }
  void readBlock();

  std::istream& m_in;
  std::size_t m_blockSize;
  std::vector<Ch> m_block;  // one byte more than a block, for the end sentinel
  std::vector<Ch> m_previous;
  std::size_t m_readCount = 0;
  std::size_t m_previousCount = 0;
  Ch* m_current = nullptr;
  Ch* m_last = nullptr;
  std::size_t m_blockOffset = 0;
  std::size_t m_previousOffset = 0;
  bool m_eof = false;
  // Lines that end before the previous block, and the offset where the last of them ended.
  std::size_t m_linesBeforePrevious = 0;
  std::size_t m_lineStartBeforePrevious = 0;
};

}  // namespace jsonio
}  // namespace tarvo

// Whitespace and the plain runs of strings are scanned a block at a time, as RapidJSON scans
// text in memory with SIMD; what stops a run (an escape, a quotation mark, a control
// character, the end of the block) is left to the parser, so that every error offset stays.
namespace rapidjson {

template <>
inline void SkipWhitespace(tarvo::jsonio::JsonInputStream& is) {
  using tarvo::jsonio::StringScan;
  while (StringScan::isWhitespace(is.Peek())) {
    if (std::size_t const run = StringScan::whitespaceRun(is.runBegin(), is.runEnd()))
      is.takeRun(run);
    else
      is.Take();  // the last byte of the block
  }
}

template <>
template <>
inline void GenericReader<UTF8<>, UTF8<>, CrtAllocator>::ScanCopyUnescapedString(
    tarvo::jsonio::JsonInputStream& is, GenericReader<UTF8<>, UTF8<>, CrtAllocator>::StackStream<char>& os) {
  std::size_t const count = tarvo::jsonio::StringScan::plainRun(is.runBegin(), is.runEnd());
  if (count == 0) return;
  std::memcpy(os.Push(static_cast<SizeType>(count)), is.runBegin(), count);
  is.takeRun(count);
}

}  // namespace rapidjson

#endif
