#ifndef TARVO_DOCS_DOCUMENTSOURCE_H
#define TARVO_DOCS_DOCUMENTSOURCE_H

#include <boost/iostreams/device/array.hpp>
#include <boost/iostreams/stream.hpp>

#include "JsonDocumentFrame.h"

#include <functional>
#include <istream>
#include <memory>
#include <optional>
#include <string>

namespace tarvo_docs {

// Where a document comes from: a file, which the library's file forms open themselves (so
// that a missing file and gzip are reported and detected as the library does), or text held
// in memory under a display name, which goes to the stream forms.
class DocumentSource {
 public:
  static DocumentSource file(std::string path);
  static DocumentSource text(std::string displayName, std::string text);
  // The whole stream as text; gzip-compressed input is inflated, as for a gzip-aware file.
  static DocumentSource stream(std::istream& in, std::string displayName);
  // `-` is `standardInput`, shown as "(standard input)"; any other argument is a file.
  static DocumentSource argument(std::string const& argument, std::istream& standardInput);

  // The file name as given, or the display name.
  std::string const& name() const { return m_name; }
  bool isFile() const { return m_text == nullptr; }
  // The text held in memory; null for a file.
  std::string const* text() const { return m_text.get(); }
  std::size_t size() const { return m_text ? m_text->size() : 0; }

  // Calls `form(fileName)` for a file and `form(stream, displayName)` for text, so that each
  // reader chooses between its file and stream form in one place.
  template <typename Form>
  auto apply(Form&& form) const -> decltype(form(std::declval<std::string const&>())) {
    if (!m_text) return form(m_name);
    boost::iostreams::stream<boost::iostreams::array_source> in(m_text->data(), m_text->size());
    return form(static_cast<std::istream&>(in), m_name);
  }

  // Calls the stream form on the text; for a file, first opens it as the library's file
  // forms do (`opener`), reporting a missing or unreadable file in the library's words. A
  // file's first NUL byte is noted on the way, so `firstNulByte` need not read it again.
  bool open(JsonDocumentFrame::Opener opener,
            std::function<bool(std::istream&, std::string const&)> const& streamForm) const;

  // The offset of the first NUL byte of the text (inflated), or npos; a read through `open`
  // that passed the whole text on has found it already. The library's parser takes a NUL
  // byte for the end of the text, so a document followed by one and anything after it reads
  // as if the rest were not there.
  std::size_t firstNulByte() const;

 private:
  DocumentSource(std::string name, std::shared_ptr<std::string const> text)
      : m_name(std::move(name)), m_text(std::move(text)) {}

  std::string m_name;
  std::shared_ptr<std::string const> m_text;
  mutable std::optional<std::size_t> m_firstNul;
};

}  // namespace tarvo_docs

#endif
