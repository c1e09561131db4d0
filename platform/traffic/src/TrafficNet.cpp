#include "TrafficNet.h"

#include "TrafficPath.h"

namespace HrdIPToolCntr {

PerfSpec TrafficNet::getPerfSpec() const {
  bool const carriesReads = m_type == READ || m_type == READ_REQ;
  return carriesReads ? m_path->getReadPerfSpec() : m_path->getWritePerfSpec();
}

}  // namespace HrdIPToolCntr
