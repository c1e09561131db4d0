#include "DocumentSource.h"

#include <boost/iostreams/copy.hpp>
#include <boost/iostreams/device/back_inserter.hpp>
#include <boost/iostreams/filter/gzip.hpp>
#include <boost/iostreams/filtering_stream.hpp>

#include <cstring>
#include <iterator>
#include <sstream>

namespace tarvo_docs {

namespace {

bool isGzip(std::string const& text) {
  return text.size() >= 2 && static_cast<unsigned char>(text[0]) == 0x1f && static_cast<unsigned char>(text[1]) == 0x8b;
}

std::string inflate(std::string const& compressed) {
  boost::iostreams::filtering_istream in;
  in.push(boost::iostreams::gzip_decompressor());
  in.push(boost::iostreams::array_source(compressed.data(), compressed.size()));
  std::string text;
  boost::iostreams::copy(in, boost::iostreams::back_inserter(text));
  return text;
}

// In blocks of 64 KB: a larger buffer costs more in first touches of its pages than it saves
// in reads.
std::size_t firstNulIn(std::istream& in) {
  std::vector<char> block(1 << 16);
  std::size_t offset = 0;
  while (in) {
    in.read(block.data(), static_cast<std::streamsize>(block.size()));
    std::size_t const got = static_cast<std::size_t>(in.gcount());
    if (void const* nul = std::memchr(block.data(), '\0', got))
      return offset + static_cast<std::size_t>(static_cast<char const*>(nul) - block.data());
    offset += got;
  }
  return std::string::npos;
}

}  // namespace

DocumentSource DocumentSource::file(std::string path) {
  return DocumentSource(std::move(path), nullptr);
}

DocumentSource DocumentSource::text(std::string displayName, std::string text) {
  return DocumentSource(std::move(displayName), std::make_shared<std::string const>(std::move(text)));
}

DocumentSource DocumentSource::stream(std::istream& in, std::string displayName) {
  std::string text{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  return DocumentSource::text(std::move(displayName), isGzip(text) ? inflate(text) : std::move(text));
}

DocumentSource DocumentSource::argument(std::string const& argument, std::istream& standardInput) {
  return argument == "-" ? stream(standardInput, "(standard input)") : file(argument);
}

bool DocumentSource::open(JsonDocumentFrame::Opener opener,
                          std::function<bool(std::istream&, std::string const&)> const& streamForm) const {
  if (!m_text) return JsonDocumentFrame::readFile(m_name, opener, streamForm);
  boost::iostreams::stream<boost::iostreams::array_source> in(m_text->data(), m_text->size());
  return streamForm(in, m_name);
}

std::size_t DocumentSource::firstNulByte() const {
  if (m_text) {
    void const* nul = std::memchr(m_text->data(), '\0', m_text->size());
    return nul ? static_cast<std::size_t>(static_cast<char const*>(nul) - m_text->data()) : std::string::npos;
  }
  std::size_t found = std::string::npos;
  open(JsonDocumentFrame::Opener::AutoDetect, [&found](std::istream& in, std::string const&) {
    found = firstNulIn(in);
    return true;
  });
  return found;
}

}  // namespace tarvo_docs
