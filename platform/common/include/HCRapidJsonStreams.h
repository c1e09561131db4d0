#ifndef HCRAPIDJSONSTREAMS_H
#define HCRAPIDJSONSTREAMS_H

#include <cassert>
#include <cstddef>
#include <istream>
#include <ostream>
#include <vector>

// RapidJSON stream adapters over standard streams that move data in large blocks: the
// standard wrappers make one virtual call per character, which costs a reader two thirds of
// its speed.

// Input: reads blocks from the stream buffer. It keeps the current and the previous block,
// and counts lines as blocks pass, so that a parse error offset can be shown as a line and
// column without reading the text again.
class HCJsonInputStream {
 public:
  typedef char Ch;

  struct Position {
    std::size_t line;    // 1-based
    std::size_t column;  // 1-based, in bytes
  };

  explicit HCJsonInputStream(std::istream& in, std::size_t blockSize = 1 << 16);
  HCJsonInputStream(HCJsonInputStream const&) = delete;
  HCJsonInputStream& operator=(HCJsonInputStream const&) = delete;

  Ch Peek() const { return *m_current; }
  Ch Take() {
    Ch c = *m_current;
    advance();
    return c;
  }
  std::size_t Tell() const { return m_blockOffset + static_cast<std::size_t>(m_current - m_block.data()); }
  // The next four bytes, or null when fewer remain in the block (encoding detection).
  Ch const* Peek4() const { return m_current + 4 <= m_last ? m_current : nullptr; }

  Ch* PutBegin() { assert(false); return nullptr; }
  void Put(Ch) { assert(false); }
  void Flush() { assert(false); }
  std::size_t PutEnd(Ch*) { assert(false); return 0; }

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

// Output: collects text and hands it to the stream in large blocks. Flush() passes the text
// on and flushes the stream; the destructor passes on what is left.
class HCJsonOutputStream {
 public:
  typedef char Ch;

  explicit HCJsonOutputStream(std::ostream& out, std::size_t blockSize = 1 << 16);
  ~HCJsonOutputStream();
  HCJsonOutputStream(HCJsonOutputStream const&) = delete;
  HCJsonOutputStream& operator=(HCJsonOutputStream const&) = delete;

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

  Ch Peek() const { assert(false); return '\0'; }
  Ch Take() { assert(false); return '\0'; }
  std::size_t Tell() const { assert(false); return 0; }
  Ch* PutBegin() { assert(false); return nullptr; }
  std::size_t PutEnd(Ch*) { assert(false); return 0; }

 private:
  void drain();

  std::ostream& m_out;
  std::vector<Ch> m_buffer;
  std::size_t m_used = 0;
};

// RapidJSON's writers reserve room before a string and then put without checks, through
// these; found by argument-dependent lookup.
inline void PutReserve(HCJsonOutputStream& stream, std::size_t count) { stream.Reserve(count); }
inline void PutUnsafe(HCJsonOutputStream& stream, char c) { stream.PutUnchecked(c); }

#endif
