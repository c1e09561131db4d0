#include "Route.h"

namespace HrdIPToolCntr {

unsigned int Route::getStructLatency() const {
  unsigned int latency = 0;
  for (DevHrdIP::Link const* link : m_links)
    latency += link->getLatency();
  return latency;
}

}  // namespace HrdIPToolCntr
