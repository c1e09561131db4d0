#include "SourceMap.h"

#include <algorithm>
#include <cctype>
#include <cstring>
#include <map>
#include <unordered_map>

namespace tarvo_diagnostics {
namespace {

// The queried pointers as a tree of steps, so that the scan compares keys only inside the
// parts of the document that something was asked about.
struct StepNode {
  std::map<std::string, StepNode, std::less<>> children;
  std::vector<std::pair<std::size_t, std::size_t>> queries;  // (occurrence, query index)
};

int hexValue(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

void appendUtf8(std::string& out, unsigned long code) {
  if (code < 0x80) {
    out += static_cast<char>(code);
  } else if (code < 0x800) {
    out += static_cast<char>(0xC0 | (code >> 6));
    out += static_cast<char>(0x80 | (code & 0x3F));
  } else if (code < 0x10000) {
    out += static_cast<char>(0xE0 | (code >> 12));
    out += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (code & 0x3F));
  } else {
    out += static_cast<char>(0xF0 | (code >> 18));
    out += static_cast<char>(0x80 | ((code >> 12) & 0x3F));
    out += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (code & 0x3F));
  }
}

class Scanner {
 public:
  Scanner(std::string const& text, std::vector<SourceMap::Query> const& queries,
          std::vector<SourceMap::NameQuery> const& names, SourceMap::Answers& answers)
      : m_p(text.data()), m_begin(text.data()), m_end(text.data() + text.size()), m_answers(answers) {
    for (std::size_t i = 0; i < queries.size(); ++i) {
      StepNode* node = &m_root;
      for (std::string const& step : queries[i].pointer)
        node = &node->children[step];
      node->queries.emplace_back(queries[i].occurrence, i);
    }
    for (std::size_t i = 0; i < names.size(); ++i)
      m_names[names[i].name].push_back(i);
    m_nameQueries = &names;
    m_matches.assign(names.size(), 0);
  }

  void run() { value(&m_root, 0, npos, nullptr); }

 private:
  static constexpr std::size_t npos = SourceMap::npos;

  void skipBlanks() {
    while (m_p < m_end && (*m_p == ' ' || *m_p == '\t' || *m_p == '\n' || *m_p == '\r'))
      ++m_p;
  }

  // Moves behind the string that starts at the quote under m_p; false at the end of the text.
  bool skipString(char const*& bodyBegin, char const*& bodyEnd) {
    bodyBegin = ++m_p;
    while (m_p < m_end && *m_p != '"')
      m_p += *m_p == '\\' ? 2 : 1;
    if (m_p >= m_end) return false;
    bodyEnd = m_p++;
    return true;
  }

  // A string token: answers name queries that it matches. `memberKey` is the key whose value
  // it is, or null for a key.
  void nameSeen(std::size_t offset, char const* begin, char const* end, std::string const* memberKey) {
    if (m_names.empty()) return;
    bool const escaped = std::memchr(begin, '\\', static_cast<std::size_t>(end - begin)) != nullptr;
    std::string const text = escaped ? SourceMap::decodeString(begin, end) : std::string(begin, end);
    auto found = m_names.find(text);
    if (found == m_names.end()) return;
    for (std::size_t index : found->second) {
      SourceMap::NameQuery const& query = (*m_nameQueries)[index];
      bool const fits = query.memberKey.empty() || (memberKey != nullptr && *memberKey == query.memberKey);
      if (fits && m_answers.names[index] == npos && m_matches[index]++ == query.occurrence)
        m_answers.names[index] = offset;
    }
  }

  // Scans one value; `node` is its place in the query tree (null outside it).
  bool value(StepNode const* node, std::size_t occurrence, std::size_t keyOffset, std::string const* memberKey) {
    skipBlanks();
    if (m_p >= m_end || ++m_depth > kMaxDepth) return false;
    std::size_t const offset = static_cast<std::size_t>(m_p - m_begin);
    if (node != nullptr)
      for (auto const& query : node->queries)
        if (query.first == occurrence) m_answers.places[query.second] = {keyOffset, offset};
    StepNode const* inside = occurrence == 0 ? node : nullptr;
    bool ok = true;
    if (*m_p == '{') {
      ok = object(inside);
    } else if (*m_p == '[') {
      ok = array(inside, memberKey);
    } else if (*m_p == '"') {
      char const* begin;
      char const* end;
      ok = skipString(begin, end);
      if (ok) nameSeen(offset, begin, end, memberKey);
    } else {
      char const* const start = m_p;
      while (m_p < m_end &&
             (std::isalnum(static_cast<unsigned char>(*m_p)) || *m_p == '-' || *m_p == '+' || *m_p == '.'))
        ++m_p;
      ok = m_p != start;
    }
    --m_depth;
    return ok;
  }

  bool object(StepNode const* node) {
    ++m_p;
    std::unordered_map<std::string, std::size_t> seen;  // occurrences of queried keys
    skipBlanks();
    if (m_p < m_end && *m_p == '}') return ++m_p, true;
    while (true) {
      skipBlanks();
      if (m_p >= m_end || *m_p != '"') return false;
      std::size_t const keyOffset = static_cast<std::size_t>(m_p - m_begin);
      char const* begin;
      char const* end;
      if (!skipString(begin, end)) return false;
      nameSeen(keyOffset, begin, end, nullptr);
      std::string key = std::memchr(begin, '\\', static_cast<std::size_t>(end - begin)) != nullptr
                            ? SourceMap::decodeString(begin, end)
                            : std::string(begin, end);
      StepNode const* child = nullptr;
      std::size_t occurrence = 0;
      if (node != nullptr) {
        auto found = node->children.find(key);
        if (found != node->children.end()) {
          child = &found->second;
          occurrence = seen[key]++;
        }
      }
      skipBlanks();
      if (m_p >= m_end || *m_p != ':') return false;
      ++m_p;
      if (!value(child, occurrence, keyOffset, &key)) return false;
      Next const next = afterEntry('}');
      if (next != Next::More) return next == Next::Closed;
    }
  }

  // Behind a member or an item: a comma goes on, `closer` ends the container.
  enum class Next { More, Closed, Broken };
  Next afterEntry(char closer) {
    skipBlanks();
    if (m_p < m_end && (*m_p == ',' || *m_p == closer)) return *m_p++ == ',' ? Next::More : Next::Closed;
    return Next::Broken;
  }

  // Items count as values of the array's member for name queries.
  bool array(StepNode const* node, std::string const* memberKey) {
    ++m_p;
    skipBlanks();
    if (m_p < m_end && *m_p == ']') return ++m_p, true;
    for (std::size_t index = 0;; ++index) {
      StepNode const* child = nullptr;
      if (node != nullptr && !node->children.empty()) {
        auto found = node->children.find(std::to_string(index));
        if (found != node->children.end()) child = &found->second;
      }
      if (!value(child, 0, npos, memberKey)) return false;
      Next const next = afterEntry(']');
      if (next != Next::More) return next == Next::Closed;
    }
  }

  // The library refuses deeper text before this layer ever sees it; the bound only keeps a
  // hostile text from exhausting the stack.
  static constexpr unsigned kMaxDepth = 4096;

  char const* m_p;
  char const* m_begin;
  char const* m_end;
  unsigned m_depth = 0;
  StepNode m_root;
  std::unordered_map<std::string, std::vector<std::size_t>> m_names;
  std::vector<SourceMap::NameQuery> const* m_nameQueries;
  std::vector<std::size_t> m_matches;
  SourceMap::Answers& m_answers;
};

}  // namespace

void SourceMap::indexLines() const {
  if (!m_lineStarts.empty()) return;
  m_lineStarts.push_back(0);
  char const* const end = m_text.data() + m_text.size();
  for (char const* p = m_text.data();
       (p = static_cast<char const*>(std::memchr(p, '\n', static_cast<std::size_t>(end - p)))); ++p)
    m_lineStarts.push_back(static_cast<std::size_t>(p - m_text.data()) + 1);
}

std::size_t SourceMap::offsetOf(std::size_t line, std::size_t column) const {
  indexLines();
  line = std::max<std::size_t>(1, std::min(line, m_lineStarts.size()));
  return std::min(m_text.size(), m_lineStarts[line - 1] + std::max<std::size_t>(column, 1) - 1);
}

SourceMap::Position SourceMap::positionOf(std::size_t offset) const {
  indexLines();
  offset = std::min(offset, m_text.size());
  std::size_t const line = static_cast<std::size_t>(std::upper_bound(m_lineStarts.begin(), m_lineStarts.end(), offset) -
                                                    m_lineStarts.begin());
  std::size_t const start = m_lineStarts[line - 1];
  std::size_t characters = 0;
  for (std::size_t i = start; i < offset; ++i)
    if ((static_cast<unsigned char>(m_text[i]) & 0xC0) != 0x80) ++characters;
  return {line, offset - start + 1, characters + 1};
}

SourceMap::Answers SourceMap::locate(std::vector<Query> const& queries, std::vector<NameQuery> const& names) const {
  Answers answers;
  answers.places.resize(queries.size());
  answers.names.assign(names.size(), npos);
  Scanner(m_text, queries, names, answers).run();
  return answers;
}

SourceMap::Pointer SourceMap::pointerFromUriFragment(std::string const& fragment) {
  Pointer steps;
  std::size_t i = fragment.compare(0, 1, "#") == 0 ? 1 : 0;
  while (i < fragment.size() && fragment[i] == '/') {
    std::string step;
    for (++i; i < fragment.size() && fragment[i] != '/'; ++i) {
      char const c = fragment[i];
      if (c == '%' && i + 2 < fragment.size() && hexValue(fragment[i + 1]) >= 0 && hexValue(fragment[i + 2]) >= 0) {
        step += static_cast<char>(hexValue(fragment[i + 1]) * 16 + hexValue(fragment[i + 2]));
        i += 2;
      } else if (c == '~' && i + 1 < fragment.size() && (fragment[i + 1] == '0' || fragment[i + 1] == '1')) {
        step += fragment[++i] == '0' ? '~' : '/';
      } else {
        step += c;
      }
    }
    steps.push_back(std::move(step));
  }
  return steps;
}

std::string SourceMap::decodeString(char const* begin, char const* end) {
  std::string out;
  out.reserve(static_cast<std::size_t>(end - begin));
  for (char const* p = begin; p < end; ++p) {
    if (*p != '\\' || p + 1 >= end) {
      out += *p;
      continue;
    }
    char const c = *++p;
    switch (c) {
      case 'b':
        out += '\b';
        break;
      case 'f':
        out += '\f';
        break;
      case 'n':
        out += '\n';
        break;
      case 'r':
        out += '\r';
        break;
      case 't':
        out += '\t';
        break;
      case 'u': {
        auto hex4 = [&](char const* at) -> long {
          if (end - at < 4) return -1;
          long v = 0;
          for (int k = 0; k < 4; ++k) {
            int const h = hexValue(at[k]);
            if (h < 0) return -1;
            v = v * 16 + h;
          }
          return v;
        };
        long code = hex4(p + 1);
        if (code < 0) {
          out += c;
          break;
        }
        p += 4;
        // A high surrogate followed by a low one makes one character.
        if (code >= 0xD800 && code < 0xDC00 && end - p > 6 && p[1] == '\\' && p[2] == 'u') {
          long const low = hex4(p + 3);
          if (low >= 0xDC00 && low < 0xE000) {
            code = 0x10000 + ((code - 0xD800) << 10) + (low - 0xDC00);
            p += 6;
          }
        }
        appendUtf8(out, static_cast<unsigned long>(code));
        break;
      }
      default:
        out += c;  // \" \\ \/
    }
  }
  return out;
}

}  // namespace tarvo_diagnostics
