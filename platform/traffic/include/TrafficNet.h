#ifndef TARVO_TRAFFICNET_H
#define TARVO_TRAFFICNET_H

#include <cstddef>

#include "PerfSpec.h"

namespace HrdIPToolCntr {

class TrafficPath;

// One direction of traffic of a path, which the NoC routes on its own. Made and owned by the
// specification of its path.
class TrafficNet {
 public:
  enum NetType { READ = 0, WRITE = 1, READ_REQ = 2, WRITE_RESP = 3 };

  // Only the traffic specification makes nets; the key lets it do so in place in its store.
  class Key {
    friend class TrafficSpec;
    Key() = default;
  };
  TrafficNet(Key, std::size_t id, NetType type, TrafficPath const* path) : m_id(id), m_type(type), m_path(path) {}
  TrafficNet(TrafficNet const&) = delete;
  TrafficNet& operator=(TrafficNet const&) = delete;

  // Creation order within the traffic specification, from 0.
  std::size_t getId() const { return m_id; }
  NetType getType() const { return m_type; }
  TrafficPath const* getPath() const { return m_path; }
  // Read nets and read requests carry the path's read requirements, the other two its write
  // requirements.
  PerfSpec getPerfSpec() const;

 private:
  std::size_t m_id;
  NetType m_type;
  TrafficPath const* m_path;
};

}  // namespace HrdIPToolCntr

#endif
