#ifndef TARVO_DESTIDREPR_H
#define TARVO_DESTIDREPR_H

#include <cstdint>

namespace HrdIPToolCntr {

// A destination id on the NoC, 16 bits wide.
class DestIdRepr {
 public:
  DestIdRepr() = default;
  explicit DestIdRepr(uint16_t value) : m_value(value) {}

  uint16_t getValue() const { return m_value; }
  bool operator==(DestIdRepr const& other) const { return m_value == other.m_value; }
  bool operator!=(DestIdRepr const& other) const { return m_value != other.m_value; }

 private:
  uint16_t m_value = 0;
};

}  // namespace HrdIPToolCntr

#endif
