#include "JsonNestingWatch.h"

#include <cstring>

namespace tarvo_docs {

JsonNestingWatch::int_type JsonNestingWatch::overflow(int_type c) {
  if (traits_type::eq_int_type(c, traits_type::eof())) return traits_type::not_eof(c);
  char const ch = traits_type::to_char_type(c);
  return xsputn(&ch, 1) == 1 ? c : traits_type::eof();
}

std::streamsize JsonNestingWatch::xsputn(char const* text, std::streamsize size) {
  std::streamsize const written = m_target.sputn(text, size);
  follow(text, static_cast<std::size_t>(written));
  return written;
}

void JsonNestingWatch::follow(char const* text, std::size_t size) {
  m_bytes += size;
  char const* at = text;
  char const* const end = text + size;
  while (at != end) {
    if (m_escaped) {
      m_escaped = false;
      ++at;
    } else if (m_inString) {
      // Most of a document's text is in strings: jump to where the string may end.
      char const* const quote = static_cast<char const*>(std::memchr(at, '"', static_cast<std::size_t>(end - at)));
      char const* const stop = quote != nullptr ? quote : end;
      char const* const backslash =
          static_cast<char const*>(std::memchr(at, '\\', static_cast<std::size_t>(stop - at)));
      if (backslash != nullptr) {
        m_escaped = true;
        at = backslash + 1;
      } else {
        m_inString = quote == nullptr;
        at = quote != nullptr ? quote + 1 : end;
      }
    } else {
      char const c = *at++;
      if (c == '"') {
        m_inString = true;
        m_opened = true;
      } else if (c == '{' || c == '[') {
        ++m_depth;
        m_opened = true;
      } else if ((c == '}' || c == ']') && m_depth > 0) {
        --m_depth;
      } else if (c != ' ' && c != '\n' && c != '\t' && c != '\r' && c != ',' && c != ':') {
        m_opened = true;
      }
    }
  }
}

}  // namespace tarvo_docs
