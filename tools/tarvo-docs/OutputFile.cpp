#include "OutputFile.h"

#include <boost/iostreams/device/back_inserter.hpp>
#include <boost/iostreams/filter/gzip.hpp>
#include <boost/iostreams/filter/symmetric.hpp>
#include <boost/iostreams/operations.hpp>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <csignal>
#include <cstring>
#include <vector>

namespace tarvo_docs {

namespace {

// A signal handler can only reach what is global, so the one temporary file that exists
// while an output is written is known here, with the dispositions to restore afterwards.
struct TemporaryFileGuard {
  char path[PATH_MAX + 32];
  std::size_t length;
  volatile std::sig_atomic_t armed;
  struct sigaction previous[2];
  bool installed[2];
};
TemporaryFileGuard g_guard;
int const kSignals[2] = {SIGINT, SIGTERM};

extern "C" void removeTemporaryAndReraise(int signal) {
  if (g_guard.armed) unlink(g_guard.path);
  // SA_RESETHAND has put the default action back, and SA_NODEFER lets it act at once.
  raise(signal);
}

// Blocks SIGINT and SIGTERM for as long as it lives, so that the guard changes as a whole.
class SignalsBlocked {
 public:
  SignalsBlocked() {
    sigset_t block;
    sigemptyset(&block);
    for (int signal : kSignals)
      sigaddset(&block, signal);
    pthread_sigmask(SIG_BLOCK, &block, &m_previous);
  }
  ~SignalsBlocked() { pthread_sigmask(SIG_SETMASK, &m_previous, nullptr); }
  SignalsBlocked(SignalsBlocked const&) = delete;
  SignalsBlocked& operator=(SignalsBlocked const&) = delete;

 private:
  sigset_t m_previous;
};

void arm(std::string const& path) {
  std::memcpy(g_guard.path, path.c_str(), path.size() + 1);
  g_guard.armed = 1;
  for (int i = 0; i < 2; ++i) {
    struct sigaction action {};
    action.sa_handler = removeTemporaryAndReraise;
    action.sa_flags = SA_RESETHAND | SA_NODEFER;
    sigemptyset(&action.sa_mask);
    sigaction(kSignals[i], nullptr, &g_guard.previous[i]);
    // A signal that the caller ignores (as nohup does) stays ignored.
    g_guard.installed[i] = g_guard.previous[i].sa_handler != SIG_IGN;
    if (g_guard.installed[i]) sigaction(kSignals[i], &action, nullptr);
  }
}

void disarm() {
  g_guard.armed = 0;
  for (int i = 0; i < 2; ++i)
    if (g_guard.installed[i]) sigaction(kSignals[i], &g_guard.previous[i], nullptr);
}

// Counts the bytes of text on their way to the compressor or the file.
class ByteCounter : public boost::iostreams::multichar_output_filter {
 public:
  explicit ByteCounter(std::uintmax_t& count) : m_count(&count) {}
  template <typename Sink>
  std::streamsize write(Sink& sink, char const* text, std::streamsize size) {
    *m_count += static_cast<std::uintmax_t>(size);
    return boost::iostreams::write(sink, text, size);
  }

 private:
  std::uintmax_t* m_count;
};

// Writes to a file descriptor that the output file owns, keeping the error number.
class DescriptorSink {
 public:
  typedef char char_type;
  typedef boost::iostreams::sink_tag category;
  DescriptorSink(int fd, int& error) : m_fd(fd), m_error(&error) {}
  std::streamsize write(char const* text, std::streamsize size) {
    std::streamsize done = 0;
    while (done < size) {
      ssize_t const wrote = ::write(m_fd, text + done, static_cast<std::size_t>(size - done));
      if (wrote < 0 && errno == EINTR) continue;
      if (wrote < 0) {
        *m_error = errno;
        throw std::ios_base::failure("write failed");
      }
      done += wrote;
    }
    return size;
  }

 private:
  int m_fd;
  int* m_error;
};

bool endsWith(std::string const& text, std::string const& end) {
  return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

std::string directoryOf(std::string const& path) {
  std::string::size_type const slash = path.rfind('/');
  if (slash == std::string::npos) return ".";
  return slash == 0 ? "/" : path.substr(0, slash);
}

// The file that a path names once its symbolic links are followed; the last may not exist.
std::string followLinks(std::string path) {
  for (int hops = 0; hops < 40; ++hops) {
    struct stat status {};
    if (lstat(path.c_str(), &status) != 0 || !S_ISLNK(status.st_mode)) return path;
    std::vector<char> link(PATH_MAX + 1);
    ssize_t const length = readlink(path.c_str(), link.data(), link.size() - 1);
    if (length < 0) return path;
    std::string const target(link.data(), static_cast<std::size_t>(length));
    path = target[0] == '/' || path.find('/') == std::string::npos ? target : directoryOf(path) + "/" + target;
  }
  errno = ELOOP;
  return std::string();
}

int writeAll(int fd, std::string const& text) {
  std::size_t done = 0;
  while (done < text.size()) {
    ssize_t const wrote = ::write(fd, text.data() + done, text.size() - done);
    if (wrote < 0 && errno == EINTR) continue;
    if (wrote < 0) return errno;
    done += static_cast<std::size_t>(wrote);
  }
  return 0;
}

}  // namespace

OutputFile::OutputFile(std::string target, std::ostream& standardOutput)
    : m_target(std::move(target)), m_standardOutput(standardOutput) {
  m_stream.push(ByteCounter(m_bytes));
  if (endsWith(m_target, ".gz")) m_stream.push(boost::iostreams::gzip_compressor());
  // /dev/stdout names our own standard output: written as "-" is, it keeps what the caller
  // made of it (a pipe, or a file opened for appending) instead of replacing a file.
  if (m_target == "-" || m_target == "/dev/stdout") {
    m_mode = Mode::StandardOutput;
    m_stream.push(boost::iostreams::back_inserter(m_buffer));
    return;
  }
  struct stat status {};
  bool const exists = stat(m_target.c_str(), &status) == 0;
  if (exists && S_ISDIR(status.st_mode)) fail("it is a directory", 0);
  if (exists && !S_ISREG(status.st_mode)) {
    // A device or a FIFO is written where it is; opening a FIFO waits for its reader.
    m_mode = Mode::InPlace;
    m_fd = open(m_target.c_str(), O_WRONLY | O_CLOEXEC);
    if (m_fd < 0) fail("it cannot be opened for writing", errno);
    m_stream.push(boost::iostreams::back_inserter(m_buffer));
    return;
  }
  // A regular file (or a new one, perhaps the end of a dangling link) is replaced where its
  // links lead, so that the links stay.
  m_path = followLinks(m_target);
  if (m_path.empty()) fail("its symbolic links do not end", errno);
  if (exists && faccessat(AT_FDCWD, m_path.c_str(), W_OK, AT_EACCESS) != 0)
    fail("you may not write it; it is left as it was", errno);
  openTemporary(m_path, exists);
  if (exists) {
    // The new text takes the old one's mode, and its owner and group where they are ours to
    // give (as root), else its group where we belong to it; otherwise the file is ours, as a
    // new file would be.
    bool const owned =
        fchown(m_fd, status.st_uid, status.st_gid) == 0 || fchown(m_fd, static_cast<uid_t>(-1), status.st_gid) == 0;
    static_cast<void>(owned);
    fchmod(m_fd, status.st_mode & 07777);
  } else {
    mode_t const mask = umask(0);
    umask(mask);
    fchmod(m_fd, 0666 & ~mask);
  }
  m_stream.push(DescriptorSink(m_fd, m_writeError));
}

OutputFile::~OutputFile() {
  try {
    m_stream.reset();
  } catch (std::exception const&) {
    // The text is thrown away with the temporary file.
  }
  if (m_fd >= 0) close(m_fd);
  removeTemporary();
}

void OutputFile::openTemporary(std::string const& path, bool exists) {
  std::string const directory = directoryOf(path);
  std::string name = path.substr(path.rfind('/') == std::string::npos ? 0 : path.rfind('/') + 1);
  std::string pattern = directory + "/." + name + ".tarvo-docs-XXXXXX";
  if (pattern.size() >= PATH_MAX) fail("its name is too long", ENAMETOOLONG);
  SignalsBlocked const blocked;
  m_fd = mkstemp(&pattern[0]);
  if (m_fd < 0)
    fail(
        exists ? "no file can be made beside it in '" + directory + "'" : "it cannot be created in '" + directory + "'",
        errno);
  m_temporary = pattern;
  arm(m_temporary);
}

void OutputFile::removeTemporary() {
  if (m_temporary.empty()) return;
  SignalsBlocked const blocked;
  unlink(m_temporary.c_str());
  m_temporary.clear();
  disarm();
}

void OutputFile::fail(std::string const& what, int error) const {
  std::string text = "cannot write '" + m_target + "': " + what;
  if (error != 0) text += std::string(" (") + std::strerror(error) + ")";
  throw OutputError(text + ".");
}

std::uintmax_t OutputFile::commit() {
  bool good = static_cast<bool>(m_stream);
  try {
    m_stream.reset();  // the compressor writes its trailer
  } catch (std::exception const&) {
    good = false;
  }
  if (!good) fail("the text could not be written", m_writeError);
  if (m_bytes == 0) return 0;
  if (m_mode == Mode::StandardOutput) {
    m_standardOutput.write(m_buffer.data(), static_cast<std::streamsize>(m_buffer.size()));
    m_standardOutput.flush();
    if (!m_standardOutput) fail("standard output refused the text", 0);
    return m_bytes;
  }
  if (m_mode == Mode::InPlace) {
    int const error = writeAll(m_fd, m_buffer);
    int const closed = close(m_fd) == 0 ? 0 : errno;
    m_fd = -1;
    if (error != 0 || closed != 0) fail("the text could not be written", error != 0 ? error : closed);
    return m_bytes;
  }
  if (fsync(m_fd) != 0) fail("the text could not be synced", errno);
  int const closed = close(m_fd) == 0 ? 0 : errno;
  m_fd = -1;
  if (closed != 0) fail("the text could not be written", closed);
  {
    SignalsBlocked const blocked;
    if (rename(m_temporary.c_str(), m_path.c_str()) != 0) fail("the new text could not replace it", errno);
    m_temporary.clear();
    disarm();
  }
  int const directory = open(directoryOf(m_path).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (directory >= 0) {
    fsync(directory);
    close(directory);
  }
  return m_bytes;
}

}  // namespace tarvo_docs
