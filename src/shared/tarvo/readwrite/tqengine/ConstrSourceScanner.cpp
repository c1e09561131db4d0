#include "ConstrSourceScanner.h"

#include <algorithm>
#include <cstring>
#include <fstream>

#include "HUTFile.h"
#include "StringScan.h"

namespace kpe {
namespace constraints {

namespace {

std::size_t const kReadBlockSize = std::size_t(1) << 16;
std::size_t const kTextBlockSize = std::size_t(1) << 16;
std::size_t const kFirstTableSize = std::size_t(1) << 12;
// Fewer bytes per quoted text than a pretty-printed document has: room made in advance,
// of which only what is used is ever touched.
std::size_t const kBytesPerQuotedText = 16;

std::size_t fileSize(std::istream& in) {
  in.seekg(0, std::ios_base::end);
  std::streamoff const size = in.tellg();
  in.seekg(0, std::ios_base::beg);
  return size > 0 ? static_cast<std::size_t>(size) : 0;
}

std::uint64_t load8(char const* at) {
  std::uint64_t word;
  std::memcpy(&word, at, 8);
#if defined(__BYTE_ORDER__) && __BYTE_ORDER__ == __ORDER_BIG_ENDIAN__
  word = __builtin_bswap64(word);  // the first byte in the low bits, as the scan expects
#endif
  return word;
}

std::uint32_t load4(char const* at) {
  std::uint32_t word;
  std::memcpy(&word, at, 4);
  return word;
}

// Eight bytes at a time, with a final mix, so that texts that differ only in their last
// characters, as generated names do, spread over the low bits that choose a slot. Most
// quoted texts are keys shorter than eight bytes, taken whole in one step.
std::uint32_t hashOf(std::string_view text) {
  std::uint64_t const multiplier = 0x9E3779B97F4A7C15ull;
  char const* const data = text.data();
  std::size_t const size = text.size();
  std::uint64_t hash = size * multiplier;
  std::size_t at = 0;
  for (; at + 8 <= size; at += 8) {
    hash = (hash ^ load8(data + at)) * multiplier;
    hash ^= hash >> 29;
  }
  // The last bytes: the final eight, overlapping what came before, or, in a shorter text,
  // two overlapping fours or the first, middle and last byte.
  if (at < size) {
    std::uint64_t word;
    if (size >= 8)
      word = load8(data + size - 8);
    else if (size >= 4)
      word = (std::uint64_t(load4(data)) << 32) | load4(data + size - 4);
    else
      word = (std::uint64_t(static_cast<unsigned char>(data[0])) << 16) |
             (std::uint64_t(static_cast<unsigned char>(data[size / 2])) << 8) |
             static_cast<unsigned char>(data[size - 1]);
    hash = (hash ^ word) * multiplier;
  }
  hash ^= hash >> 32;
  hash *= multiplier;
  return static_cast<std::uint32_t>(hash >> 32);
}

}  // namespace

ConstrSourceScanner::ConstrSourceScanner(std::string fileName) : m_fileName(std::move(fileName)) {}

ConstrSourceScanner::~ConstrSourceScanner() = default;

ConstrSourceScanner::State ConstrSourceScanner::load() {
  if (m_state != State::NotLoaded) return m_state;
  if (m_fileName.empty()) return m_state = State::NoFileName;
  if (!HUTFile(m_fileName).isFile()) return m_state = State::NotRegularFile;
  std::ifstream in(m_fileName, std::ios_base::in | std::ios_base::binary);
  if (!in) return m_state = State::CannotOpen;
  index(in, fileSize(in));
  return m_state = State::Loaded;
}

// Lines are indexed as they come complete out of the blocks; the rest of a block moves to
// the front and waits for the next one, and the buffer grows only for a line longer than
// itself. A line that spans blocks is searched for its end only in the new bytes.
void ConstrSourceScanner::index(std::istream& in, std::size_t sizeHint) {
  Pass pass;
  pass.reserve(sizeHint / kBytesPerQuotedText);
  std::size_t capacity = kReadBlockSize;
  std::unique_ptr<char[]> buffer(new char[capacity]);
  std::size_t kept = 0;
  std::uint32_t line = 1;
  bool atEnd = false;
  while (!atEnd) {
    if (kept == capacity) {
      std::unique_ptr<char[]> larger(new char[2 * capacity]);
      std::memcpy(larger.get(), buffer.get(), kept);
      buffer.swap(larger);
      capacity *= 2;
    }
    in.read(buffer.get() + kept, static_cast<std::streamsize>(capacity - kept));
    std::string_view const text(buffer.get(), kept + static_cast<std::size_t>(in.gcount()));
    atEnd = !in;
    std::size_t const newline = text.substr(kept).rfind('\n');
    std::size_t const complete = newline == std::string_view::npos ? 0 : kept + newline + 1;
    if (complete > 0) indexLines(text.substr(0, complete), line, pass);
    kept = text.size() - complete;
    std::memmove(buffer.get(), buffer.get() + complete, kept);
  }
  indexLines(std::string_view(buffer.get(), kept), line, pass);
  groupByText(pass);
}

// Every match of a quoted text without quotes inside starts at a quote whose next quote on
// the same line closes it, so indexing the text between each pair of neighbouring quotes
// finds all matches that a line search would find. Quotes and newlines are found eight
// bytes at a time; `line` is the number of the first line and becomes that of the last.
void ConstrSourceScanner::indexLines(std::string_view text, std::uint32_t& line, Pass& pass) {
  std::size_t const none = std::string_view::npos;
  std::size_t lineStart = 0;
  std::size_t open = none;
  auto const take = [&](std::size_t at) {
    if (text[at] == '\n') {
      ++line;
      lineStart = at + 1;
      open = none;
      return;
    }
    if (open != none)
      pass.push_back(
          {numberOf(text.substr(open + 1, at - open - 1)), {line, static_cast<std::uint32_t>(open - lineStart + 1)}});
    open = at;
  };
  std::size_t at = 0;
  for (; at + 8 <= text.size(); at += 8) {
    std::uint64_t const word = load8(text.data() + at);
    for (std::uint64_t found =
             tarvo::jsonio::StringScan::bytesEqual(word, '"') | tarvo::jsonio::StringScan::bytesEqual(word, '\n');
         found != 0; found &= found - 1)
      take(at + (static_cast<std::size_t>(__builtin_ctzll(found)) >> 3));
  }
  for (; at < text.size(); ++at)
    if (text[at] == '"' || text[at] == '\n') take(at);
}

// A counting sort by text number, which keeps file order within each text.
void ConstrSourceScanner::groupByText(Pass const& pass) {
  for (Sighting const& sighting : pass)
    ++m_texts[sighting.number].count;
  std::uint32_t begin = 0;
  for (Text& text : m_texts) {
    text.begin = begin;
    begin += text.count;
    text.count = 0;
  }
  m_occurrences.reset(new Occurrence[pass.size()]);
  for (Sighting const& sighting : pass) {
    Text& text = m_texts[sighting.number];
    m_occurrences[text.begin + text.count++] = sighting.occurrence;
  }
}

std::uint32_t ConstrSourceScanner::numberOf(std::string_view text) {
  if (m_slots.empty()) m_slots.assign(kFirstTableSize, Slot{0, 0});
  std::uint32_t const hash = hashOf(text);
  std::size_t const mask = m_slots.size() - 1;
  for (std::size_t i = hash & mask;; i = (i + 1) & mask) {
    Slot& slot = m_slots[i];
    if (slot.numberPlusOne == 0) {
      std::uint32_t const number = static_cast<std::uint32_t>(m_texts.size());
      m_texts.push_back(Text{keep(text), 0, 0});
      slot = Slot{hash, number + 1};
      if (2 * m_texts.size() > m_slots.size()) doubleHashSlots(m_slots);
      return number;
    }
    if (slot.hash == hash && m_texts[slot.numberPlusOne - 1].text == text) return slot.numberPlusOne - 1;
  }
}

ConstrSourceScanner::Text const* ConstrSourceScanner::lookUp(std::string_view text) const {
  if (m_slots.empty()) return nullptr;
  std::uint32_t const hash = hashOf(text);
  std::size_t const mask = m_slots.size() - 1;
  for (std::size_t i = hash & mask;; i = (i + 1) & mask) {
    Slot const& slot = m_slots[i];
    if (slot.numberPlusOne == 0) return nullptr;
    if (slot.hash == hash && m_texts[slot.numberPlusOne - 1].text == text) return &m_texts[slot.numberPlusOne - 1];
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
  Text const* const entry = lookUp(text);
  if (entry == nullptr) return false;
  Occurrence const* const first = m_occurrences.get() + entry->begin;
  auto const last = first + entry->count;
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

bool ConstrSourceScanner::findFirst(std::string const& name, Occurrence& found) {
  if (m_lastName == nullptr || m_lastName->text != name) {
    if (name.find('"') != std::string::npos) return findAfter(name, 0, found);
    Text const* const entry = lookUp(name);
    if (entry == nullptr) return false;
    m_lastName = entry;
  }
  found = m_occurrences[m_lastName->begin];
  return true;
}

ConstrSourceScanner::Position ConstrSourceScanner::find(std::string const& objName, std::string const& key) {
  Position position;
  Occurrence name{};
  Occurrence at{};
  if (load() != State::Loaded || !findFirst(objName, name) || !findAfter(key, name.line, at)) return position;
  position.line = static_cast<int>(at.line);
  position.column = static_cast<int>(at.column);
  return position;
}

ConstrSourceScanner::Position ConstrSourceScanner::find(std::string const& name) {
  Position position;
  Occurrence at{};
  if (load() != State::Loaded || !findFirst(name, at)) return position;
  position.line = static_cast<int>(at.line);
  position.column = static_cast<int>(at.column);
  return position;
}

}  // namespace constraints
}  // namespace kpe
