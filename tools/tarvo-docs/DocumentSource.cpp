#include "DocumentSource.h"

#include <boost/iostreams/copy.hpp>
#include <boost/iostreams/device/back_inserter.hpp>
#include <boost/iostreams/filter/gzip.hpp>
#include <boost/iostreams/filtering_stream.hpp>

#include <algorithm>
#include <cstring>
#include <iterator>
#include <sstream>
#include <streambuf>
#include <vector>

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

// Passes a file's text on to a reader and notes the first NUL byte in it on the way: reading
// a large file a second time to look for one costs a fifth of its parse.
class NulWatch : public std::streambuf {
 public:
  explicit NulWatch(std::streambuf& source) : m_source(source) {}

  // Whether the first NUL byte is known: one was passed on, or the whole text was.
  bool knowsFirstNul() { return m_firstNul != std::string::npos || m_source.sgetc() == traits_type::eof(); }
  std::size_t firstNul() const { return m_firstNul; }

 protected:
  int_type underflow() override {
    std::streamsize const got = m_source.sgetn(m_buffer, sizeof m_buffer);
    if (got <= 0) return traits_type::eof();
    pass(m_buffer, got);
    setg(m_buffer, m_buffer, m_buffer + got);
    return traits_type::to_int_type(*gptr());
  }

  // Large reads go straight from the source into the reader's buffer.
  std::streamsize xsgetn(char* to, std::streamsize count) override {
    std::streamsize const buffered = std::min<std::streamsize>(count, egptr() - gptr());
    if (buffered > 0) {
      std::memcpy(to, gptr(), static_cast<std::size_t>(buffered));
      gbump(static_cast<int>(buffered));
    }
    if (buffered == count) return count;
    std::streamsize const got = m_source.sgetn(to + buffered, count - buffered);
    if (got <= 0) return buffered;
    pass(to + buffered, got);
    return buffered + got;
  }

 private:
  void pass(char const* text, std::streamsize count) {
    if (m_firstNul == std::string::npos)
      if (void const* nul = std::memchr(text, '\0', static_cast<std::size_t>(count)))
        m_firstNul = m_passed + static_cast<std::size_t>(static_cast<char const*>(nul) - text);
    m_passed += static_cast<std::size_t>(count);
  }

  std::streambuf& m_source;
  char m_buffer[1 << 12];
  std::size_t m_passed = 0;
  std::size_t m_firstNul = std::string::npos;
};

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
  if (m_text) {
    boost::iostreams::stream<boost::iostreams::array_source> in(m_text->data(), m_text->size());
    return streamForm(in, m_name);
  }
  return JsonDocumentFrame::readFile(m_name, opener, [&](std::istream& in, std::string const& name) {
    NulWatch watch(*in.rdbuf());
    std::istream watched(&watch);
    bool const read = streamForm(watched, name);
    if (watch.knowsFirstNul()) m_firstNul = watch.firstNul();
    return read;
  });
}

std::size_t DocumentSource::firstNulByte() const {
  if (m_text) {
    void const* nul = std::memchr(m_text->data(), '\0', m_text->size());
    return nul ? static_cast<std::size_t>(static_cast<char const*>(nul) - m_text->data()) : std::string::npos;
  }
  if (!m_firstNul)
    open(JsonDocumentFrame::Opener::AutoDetect, [](std::istream& in, std::string const&) {
      std::vector<char> block(1 << 16);
      while (in.read(block.data(), static_cast<std::streamsize>(block.size()))) {
      }
      return true;
    });
  return m_firstNul.value_or(std::string::npos);
}

}  // namespace tarvo_docs
