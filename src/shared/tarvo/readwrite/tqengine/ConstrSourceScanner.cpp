#include "ConstrSourceScanner.h"

#include <algorithm>
#include <cstring>
#include <fstream>

#include "HUTFile.h"

namespace kpe {
namespace constraints {

namespace {

std::size_t const kReadBlockSize = std::size_t(1) << 16;
std::size_t const kTextBlockSize = std::size_t(1) << 16;

}  // namespace

ConstrSourceScanner::ConstrSourceScanner(std::string fileName) : m_fileName(std::move(fileName)) {}

ConstrSourceScanner::~ConstrSourceScanner() = default;

ConstrSourceScanner::State ConstrSourceScanner::load() {
  if (m_state != State::NotLoaded) return m_state;
  if (m_fileName.empty()) return m_state = State::NoFileName;
  if (!HUTFile(m_fileName).isFile()) return m_state = State::NotRegularFile;
  std::ifstream in(m_fileName, std::ios_base::in | std::ios_base::binary);
  if (!in) return m_state = State::CannotOpen;
  index(in);
  return m_state = State::Loaded;
}

// Lines are indexed as they come complete out of the blocks; the rest of a block waits for
// the next one. A line that spans blocks is searched for its end only in the new bytes.
void ConstrSourceScanner::index(std::istream& in) {
  Pass pass;
  std::string buffer;
  std::uint32_t line = 1;
  bool atEnd = false;
  while (!atEnd) {
    std::size_t const kept = buffer.size();
    buffer.resize(kept + kReadBlockSize);
    in.read(&buffer[kept], static_cast<std::streamsize>(kReadBlockSize));
    buffer.resize(kept + static_cast<std::size_t>(in.gcount()));
    atEnd = !in;
    std::string_view const text(buffer);
    std::size_t start = 0;
    for (std::size_t end = text.find('\n', kept); end != std::string_view::npos; end = text.find('\n', start)) {
      indexLine(text.substr(start, end - start), line++, pass);
      start = end + 1;
    }
    buffer.erase(0, start);
  }
  indexLine(buffer, line, pass);
  groupByText(pass);
}

// Every match of a quoted text without quotes inside starts at a quote whose next quote on
// the same line closes it, so indexing the text between each pair of neighbouring quotes
// finds all matches that a line search would find.
void ConstrSourceScanner::indexLine(std::string_view line, std::uint32_t lineNumber, Pass& pass) {
  std::size_t open = line.find('"');
  while (open != std::string_view::npos) {
    std::size_t const close = line.find('"', open + 1);
    if (close == std::string_view::npos) return;
    std::string_view const text = line.substr(open + 1, close - open - 1);
    auto number = m_numbers.find(text);
    if (number == m_numbers.end())
      number = m_numbers.emplace(keep(text), static_cast<std::uint32_t>(m_numbers.size())).first;
    pass.numbers.push_back(number->second);
    pass.occurrences.push_back({lineNumber, static_cast<std::uint32_t>(open + 1)});
    open = close;
  }
}

// A counting sort by text number, which keeps file order within each text.
void ConstrSourceScanner::groupByText(Pass const& pass) {
  m_postings.assign(m_numbers.size(), Postings{0, 0});
  for (std::uint32_t number : pass.numbers)
    ++m_postings[number].count;
  std::uint32_t begin = 0;
  for (Postings& postings : m_postings) {
    postings.begin = begin;
    begin += postings.count;
    postings.count = 0;
  }
  m_occurrences.resize(pass.occurrences.size());
  for (std::size_t i = 0; i < pass.numbers.size(); ++i) {
    Postings& postings = m_postings[pass.numbers[i]];
    m_occurrences[postings.begin + postings.count++] = pass.occurrences[i];
  }
}

std::string_view ConstrSourceScanner::keep(std::string_view text) {
  if (text.empty()) return std::string_view();
  if (text.size() > m_textFree) {
    std::size_t const size = std::max(kTextBlockSize, text.size());
    m_textBlocks.emplace_back(new char[size]);
    m_textNext = m_textBlocks.back().get();
    m_textFree = size;
  }
  std::memcpy(m_textNext, text.data(), text.size());
  std::string_view const kept(m_textNext, text.size());
  m_textNext += text.size();
  m_textFree -= text.size();
  return kept;
}

bool ConstrSourceScanner::findAfter(std::string const& text, std::uint32_t afterLine, Occurrence& found) const {
  if (text.find('"') != std::string::npos) return searchLines('"' + text + '"', afterLine, found);
  auto const number = m_numbers.find(std::string_view(text));
  if (number == m_numbers.end()) return false;
  Postings const& postings = m_postings[number->second];
  auto const first = m_occurrences.begin() + postings.begin;
  auto const last = first + postings.count;
  auto const next =
      std::upper_bound(first, last, afterLine, [](std::uint32_t line, Occurrence const& o) { return line < o.line; });
  if (next == last) return false;
  found = *next;
  return true;
}

bool ConstrSourceScanner::searchLines(std::string const& needle, std::uint32_t afterLine, Occurrence& found) const {
  std::ifstream in(m_fileName, std::ios_base::in | std::ios_base::binary);
  std::string text;
  for (std::uint32_t line = 1; std::getline(in, text); ++line) {
    if (line <= afterLine) continue;
    std::size_t const at = text.find(needle);
    if (at != std::string::npos) {
      found = {line, static_cast<std::uint32_t>(at + 1)};
      return true;
    }
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
