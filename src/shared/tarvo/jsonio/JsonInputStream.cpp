#include "JsonInputStream.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <utility>

#include "StringScan.h"

namespace tarvo {
namespace jsonio {

namespace {

// Counts the newlines in [text, text + count), sixteen or eight bytes at a time; `lineStart`
// becomes the offset just behind the last of them, where `base` is the offset of `text`. Every
// block of a read passes here, so it is a visible part of a parse.
void countLines(char const* text, std::size_t count, std::size_t base, std::size_t& lines, std::size_t& lineStart) {
  std::size_t at = 0;
  std::size_t found = 0;
#if defined(__SSE2__)
  __m128i const newline = _mm_set1_epi8('\n');
  for (; at + 16 <= count; at += 16) {
    __m128i const bytes = _mm_loadu_si128(reinterpret_cast<__m128i const*>(text + at));
    found += static_cast<std::size_t>(
        __builtin_popcount(static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi8(bytes, newline)))));
  }
#endif
  for (; at + 8 <= count; at += 8) {
    std::uint64_t word;
    std::memcpy(&word, text + at, 8);
    found += static_cast<std::size_t>(__builtin_popcountll(StringScan::bytesEqual(word, '\n')));
  }
  for (; at < count; ++at)
    found += text[at] == '\n' ? 1 : 0;
  if (found == 0) return;
  lines += found;
  char const* last = text + count;
  while (*--last != '\n') {
  }
  lineStart = base + static_cast<std::size_t>(last - text) + 1;
}

}  // namespace

JsonInputStream::JsonInputStream(std::istream& in, std::size_t blockSize)
    : m_in(in),
      m_blockSize(std::max<std::size_t>(blockSize, 4)),
      m_block(m_blockSize + 1),
      m_previous(m_blockSize + 1) {
  readBlock();
}

void JsonInputStream::readBlock() {
  countLines(m_previous.data(), m_previousCount, m_previousOffset, m_linesBeforePrevious, m_lineStartBeforePrevious);
  std::swap(m_block, m_previous);
  m_previousCount = m_readCount;
  m_previousOffset = m_blockOffset;
  m_blockOffset += m_readCount;

  // A stream that is not good gives no text, as it would to a reader that asks it per character.
  std::streamsize const got = m_in.rdbuf() == nullptr || !m_in.good()
                                  ? 0
                                  : m_in.rdbuf()->sgetn(m_block.data(), static_cast<std::streamsize>(m_blockSize));
  m_readCount = got > 0 ? static_cast<std::size_t>(got) : 0;
  m_current = m_block.data();
  // Like a FILE-backed reader: the last valid byte, and past the end a '\0' sentinel that
  // the parser sees as the end of the text.
  m_last = m_block.data() + m_readCount;
  if (m_readCount < m_blockSize) {
    m_block[m_readCount] = '\0';
    m_eof = true;
  } else {
    --m_last;
  }
}

JsonInputStream::Position JsonInputStream::positionOf(std::size_t offset) const {
  std::size_t lines = m_linesBeforePrevious;
  std::size_t lineStart = m_lineStartBeforePrevious;
  auto scan = [&](std::vector<Ch> const& block, std::size_t count, std::size_t base) {
    if (offset <= base) return;
    countLines(block.data(), std::min(count, offset - base), base, lines, lineStart);
  };
  scan(m_previous, m_previousCount, m_previousOffset);
  scan(m_block, m_readCount, m_blockOffset);
  offset = std::max(offset, lineStart);
  return Position{lines + 1, offset - lineStart + 1};
}

}  // namespace jsonio
}  // namespace tarvo
