#ifndef TARVO_ROUTE_H
#define TARVO_ROUTE_H

#include <vector>

#include "Link.h"

namespace HrdIPToolCntr {

// The way one net takes through the NoC: its links from source to destination, the virtual
// channel, the bandwidth it achieved and whether the compiler must keep it.
class Route {
 public:
  Route(std::vector<DevHrdIP::Link const*> const& links, unsigned char vc, unsigned int achievedBW, bool locked)
      : m_links(links), m_vc(vc), m_achievedBW(achievedBW), m_locked(locked) {}

  std::vector<DevHrdIP::Link const*> const& getLinks() const { return m_links; }
  unsigned char getVC() const { return m_vc; }
  unsigned int getAchievedBW() const { return m_achievedBW; }
  bool isLocked() const { return m_locked; }
  // The latency that the links alone cause: the sum of their latencies.
  unsigned int getStructLatency() const;

 private:
  std::vector<DevHrdIP::Link const*> m_links;
  unsigned char m_vc;
  unsigned int m_achievedBW;
  bool m_locked;
};

}  // namespace HrdIPToolCntr

#endif
