#include "ConstrSourceScanner.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <sstream>

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
  std::ostringstream text;
  text << in.rdbuf();
  m_text = text.str();
  index();
  return m_state = State::Loaded;
}

// Every match of a quoted text without quotes inside starts at a quote whose next quote on
// the same line closes it, so indexing the text between each pair of neighbouring quotes
// finds all matches that a line search would find.
void ConstrSourceScanner::index() {
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
      if (openQuote != std::string::npos) {
        std::string_view const quoted(m_text.data() + openQuote + 1, i - openQuote - 1);
        m_quoted[quoted].push_back({line, static_cast<std::uint32_t>(openQuote - lineStart + 1)});
      }
      openQuote = i;
    }
  }
}

bool ConstrSourceScanner::findAfter(std::string const& text, std::uint32_t afterLine, Occurrence& found) const {
  if (text.find('"') != std::string::npos) return searchLines('"' + text + '"', afterLine, found);
  auto const entry = m_quoted.find(std::string_view(text));
  if (entry == m_quoted.end()) return false;
  Occurrences const& all = entry->second;
  auto const next = std::upper_bound(all.begin(), all.end(), afterLine,
                                     [](std::uint32_t line, Occurrence const& o) { return line < o.line; });
  if (next == all.end()) return false;
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
