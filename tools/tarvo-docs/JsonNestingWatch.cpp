#include "JsonNestingWatch.h"

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
  for (char const* at = text; at != text + size; ++at) {
    char const c = *at;
    if (m_inString) {
      if (m_escaped)
        m_escaped = false;
      else if (c == '\\')
        m_escaped = true;
      else if (c == '"')
        m_inString = false;
    } else if (c == '"') {
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

}  // namespace tarvo_docs
