#ifndef TARVO_XP_OPENERS_H
#define TARVO_XP_OPENERS_H

#include <boost/iostreams/filtering_stream.hpp>

#include <ios>

namespace ovk {
namespace iostreams {

typedef boost::iostreams::filtering_istream filtering_istream;

// Openers: callables that attach a file to an empty filtering stream. A file that can't be
// opened leaves the stream with its failure bit set.

// Opens a plain file.
struct basic_file {
  explicit basic_file(std::ios_base::openmode mode = std::ios_base::in) : m_mode(mode) {}
  void operator()(char const* file, filtering_istream& stream) const;

 private:
  std::ios_base::openmode m_mode;
};

// Opens a file and, when its first bytes are the gzip magic, decompresses it on the fly.
struct xp_autodetect {
  explicit xp_autodetect(std::ios_base::openmode mode = std::ios_base::in | std::ios_base::binary)
      : m_mode(mode) {}
  void operator()(char const* file, filtering_istream& stream) const;

 private:
  std::ios_base::openmode m_mode;
};

}  // namespace iostreams
}  // namespace ovk

#endif
