#ifndef TARVO_XP_IFSTREAM_H
#define TARVO_XP_IFSTREAM_H

#include <boost/function.hpp>

#include "xp_openers.h"

namespace ovk {
namespace iostreams {

// An input stream on a file, opened by an opener; `basic_file` with the given mode when no
// opener is given.
class xp_ifstream : public filtering_istream {
 public:
  typedef boost::function<void(char const*, filtering_istream&)> opener_type;

  xp_ifstream(char const* file, opener_type const& opener);
  explicit xp_ifstream(char const* file, std::ios_base::openmode mode = std::ios_base::in);
};

}  // namespace iostreams
}  // namespace ovk

#endif
