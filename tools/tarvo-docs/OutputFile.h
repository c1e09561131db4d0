#ifndef TARVO_DOCS_OUTPUTFILE_H
#define TARVO_DOCS_OUTPUTFILE_H

#include <boost/iostreams/filtering_stream.hpp>

#include <cstdint>
#include <ostream>
#include <stdexcept>
#include <string>

namespace tarvo_docs {

// An output that a command could not write; the target is as it was.
class OutputError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// The one way tarvo-docs writes an output (every -o of every command), so that nothing it
// writes is ever half-written or lost:
// - "-" (and /dev/stdout) is standard output; a target that is no regular file (a device, a FIFO) is opened
//   and written in place, never replaced. Both get the text only once it is complete.
// - A regular target, or a new one, is written to a temporary file with a unique name in
//   the target's directory, synced, and renamed over the target. A symbolic link is
//   followed (the text goes to its target, the link stays); an existing target keeps its
//   mode, owner and group; a target the user may not write is refused.
// - The temporary file is removed when the output is not committed, and on SIGINT or
//   SIGTERM while it exists; the target then stays as it was.
// - A target ending in ".gz" is written gzip-compressed.
// - Empty text is not written at all: the target stays as it was.
class OutputFile {
 public:
  // Opens the temporary file (or the buffer); throws OutputError when the target cannot be
  // written.
  OutputFile(std::string target, std::ostream& standardOutput);
  ~OutputFile();
  OutputFile(OutputFile const&) = delete;
  OutputFile& operator=(OutputFile const&) = delete;

  // Where the text goes.
  std::ostream& stream() { return m_stream; }
  // Puts the text in place; returns the number of bytes of text (before compression), 0
  // when there was nothing to write and the target was left alone. Throws OutputError.
  std::uintmax_t commit();

  std::string const& target() const { return m_target; }

 private:
  enum class Mode { StandardOutput, InPlace, Replace };

  [[noreturn]] void fail(std::string const& what, int error) const;
  void openTemporary(std::string const& path, bool exists);
  void removeTemporary();

  std::string m_target;
  std::ostream& m_standardOutput;
  Mode m_mode = Mode::Replace;
  std::string m_path;       // the file written: the target with its links followed
  std::string m_temporary;  // the temporary file beside it, while it exists
  int m_fd = -1;
  int m_writeError = 0;
  std::string m_buffer;  // the text for standard output and in-place targets
  std::uintmax_t m_bytes = 0;
  boost::iostreams::filtering_ostream m_stream;
};

}  // namespace tarvo_docs

#endif
