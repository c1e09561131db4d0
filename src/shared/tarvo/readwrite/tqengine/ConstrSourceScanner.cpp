#include "ConstrSourceScanner.h"

#include <algorithm>
#include <fstream>

#include "HUTFile.h"

namespace kpe {
namespace constraints {

ConstrSourceScanner::ConstrSourceScanner(std::string fileName) : m_fileName(std::move(fileName)) {}

ConstrSourceScanner::State ConstrSourceScanner::load() {
  if (m_state != State::NotLoaded) return m_state;
  if (m_fileName.empty()) return m_state = State::NoFileName;
  if (!HUTFile(m_fileName).isFile()) return m_state = State::NotRegularFile;
  std::ifstream in(m_fileName, std::ios_base::in | std::ios_base::binary);
  if (!in) return m_state = State::CannotOpen;
  // Straight into the text, without a second copy at the peak.
  in.seekg(0, std::ios_base::end);
  std::streamoff const size = in.tellg();
  in.seekg(0, std::ios_base::beg);
  m_text.resize(size > 0 ? static_cast<std::size_t>(size) : 0);
  in.read(&m_text[0], static_cast<std::streamsize>(m_text.size()));
  m_text.resize(static_cast<std::size_t>(in.gcount()));
  index();
  return m_state = State::Loaded;
}

// Every match of a quoted text without quotes inside starts at a quote whose next quote on
// the same line closes it, so indexing the text between each pair of neighbouring quotes
// finds all matches that a line search would find.
template <typename Visit>
void ConstrSourceScanner::forEachQuoted(Visit visit) const {
  std::uint32_t line = 1;
  std::size_t lineStart = 0;
  std::size_t openQuote = std::string::npos;
  for (std::size_t i = 0; i < m_text.size(); ++i) {
    char const c = m_text[i];
    if (c == '\n') {
      ++line;
      lineStart = i + 1;
      openQuote = std::string::npos;
    } else if (c == '"') {
      if (openQuote != std::string::npos)
        visit(std::string_view(m_text.data() + openQuote + 1, i - openQuote - 1), line,
              static_cast<std::uint32_t>(openQuote - lineStart + 1));
      openQuote = i;
    }
  }
}

void ConstrSourceScanner::index() {
  forEachQuoted([this](std::string_view text, std::uint32_t, std::uint32_t) { ++m_quoted[text].count; });
  std::uint32_t begin = 0;
  for (auto& entry : m_quoted) {
    entry.second.begin = begin;
    begin += entry.second.count;
    entry.second.count = 0;
  }
  m_occurrences.resize(begin);
  forEachQuoted([this](std::string_view text, std::uint32_t line, std::uint32_t column) {
    Postings& postings = m_quoted.find(text)->second;
    m_occurrences[postings.begin + postings.count++] = {line, column};
  });
}

bool ConstrSourceScanner::findAfter(std::string const& text, std::uint32_t afterLine, Occurrence& found) const {
  if (text.find('"') != std::string::npos) return searchLines('"' + text + '"', afterLine, found);
  auto const entry = m_quoted.find(std::string_view(text));
  if (entry == m_quoted.end()) return false;
  auto const first = m_occurrences.begin() + entry->second.begin;
  auto const last = first + entry->second.count;
  auto const next =
      std::upper_bound(first, last, afterLine, [](std::uint32_t line, Occurrence const& o) { return line < o.line; });
  if (next == last) return false;
  found = *next;
  return true;
}

bool ConstrSourceScanner::searchLines(std::string const& needle, std::uint32_t afterLine, Occurrence& found) const {
  std::uint32_t line = 0;
  std::size_t start = 0;
  while (start <= m_text.size()) {
    std::size_t end = m_text.find('\n', start);
    if (end == std::string::npos) end = m_text.size();
    ++line;
    if (line > afterLine) {
      std::string_view const text(m_text.data() + start, end - start);
      std::size_t const at = text.find(needle);
      if (at != std::string_view::npos) {
        found = {line, static_cast<std::uint32_t>(at + 1)};
        return true;
      }
    }
    if (end == m_text.size()) break;
    start = end + 1;
  }
  return false;
}

ConstrSourceScanner::Position ConstrSourceScanner::find(std::string const& objName, std::string const& key) {
  Position position;
  Occurrence name{};
  Occurrence at{};
  if (load() != State::Loaded || !findAfter(objName, 0, name) || !findAfter(key, name.line, at)) return position;
  position.line = static_cast<int>(at.line);
  position.column = static_cast<int>(at.column);
  return position;
}

ConstrSourceScanner::Position ConstrSourceScanner::find(std::string const& name) {
  Position position;
  Occurrence at{};
  if (load() != State::Loaded || !findAfter(name, 0, at)) return position;
  position.line = static_cast<int>(at.line);
  position.column = static_cast<int>(at.column);
  return position;
}

}  // namespace constraints
}  // namespace kpe
