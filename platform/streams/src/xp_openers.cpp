#include "xp_openers.h"

#include <boost/iostreams/device/file.hpp>
#include <boost/iostreams/filter/gzip.hpp>

#include <fstream>

namespace ovk {
namespace iostreams {

namespace {

bool hasGzipMagic(char const* file) {
  std::ifstream probe(file, std::ios_base::in | std::ios_base::binary);
  unsigned char magic[2] = {0, 0};
  probe.read(reinterpret_cast<char*>(magic), 2);
  return probe.gcount() == 2 && magic[0] == 0x1f && magic[1] == 0x8b;
}

// The stream's buffer: with the default of 4 KB, a large document is read in 8 KB system calls
// through two buffers; from 64 KB up the file buffer passes reads straight to the system.
std::streamsize const kBufferSize = 1 << 16;

void pushFile(char const* file, std::ios_base::openmode mode, filtering_istream& stream) {
  boost::iostreams::file_source source(file, mode | std::ios_base::in);
  if (!source.is_open()) {
    stream.setstate(std::ios_base::failbit);
    return;
  }
  stream.push(source, kBufferSize);
}

}  // namespace

void basic_file::operator()(char const* file, filtering_istream& stream) const { pushFile(file, m_mode, stream); }

void xp_autodetect::operator()(char const* file, filtering_istream& stream) const {
  if (hasGzipMagic(file)) stream.push(boost::iostreams::gzip_decompressor());
  pushFile(file, m_mode | std::ios_base::binary, stream);
}

}  // namespace iostreams
}  // namespace ovk
