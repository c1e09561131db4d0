#include "xp_ifstream.h"

namespace ovk {
namespace iostreams {

xp_ifstream::xp_ifstream(char const* file, opener_type const& opener) {
  if (opener)
    opener(file, *this);
  else
    setstate(std::ios_base::failbit);
}

xp_ifstream::xp_ifstream(char const* file, std::ios_base::openmode mode) {
  basic_file const opener(mode);
  opener(file, *this);
}

}  // namespace iostreams
}  // namespace ovk
