#ifndef TARVO_LINK_H
#define TARVO_LINK_H

#include <string>

namespace DevHrdIP {

class Component;
class NOCModel;

// A one-way wire of the NoC from a port of one component to a port of another, with the
// cycles a transfer spends on it. Made and owned by its NOCModel.
class Link {
 public:
  Link(Link const&) = delete;
  Link& operator=(Link const&) = delete;

  Component const* getSrcComponent() const { return m_src; }
  std::string const& getSrcPortName() const { return m_srcPort; }
  Component const* getDstComponent() const { return m_dst; }
  std::string const& getDstPortName() const { return m_dstPort; }
  unsigned getLatency() const { return m_latency; }

 private:
  friend class NOCModel;
  Link(Component const* src, std::string const& srcPort, Component const* dst, std::string const& dstPort,
       unsigned latency)
      : m_src(src), m_srcPort(srcPort), m_dst(dst), m_dstPort(dstPort), m_latency(latency) {}

  Component const* m_src;
  std::string m_srcPort;
  Component const* m_dst;
  std::string m_dstPort;
  unsigned m_latency;
};

}  // namespace DevHrdIP

#endif
