#include "PhysicalRange.h"

namespace kpe {
namespace constraints {

bool PhysicalRangeInterface::isValid() const {
  PhysicalSpec const& low = getLow();
  PhysicalSpec const& high = getHigh();
  if (!low.isSpecified()) {
    return false;
  }
  if (!high.isSpecified()) {
    return true;
  }
  // Two mem places do not make a range, though one mem place is valid alone.
  return (low.isShim() && high.isShim()) || (low.isTile() && high.isTile());
}

PhysicalRect PhysicalRange::getRect() const {
  return PhysicalRect(m_high.getXY(), m_low.getXY());
}

void PhysicalRange::setRect(PhysicalRect const& rect) {
  m_low.setXY(rect.second);
  m_high.setXY(rect.first);
}

namespace {

void shiftColumn(PhysicalSpec& place, int n) {
  if (place.hasColumn() && !place.hasName()) {
    place.setColumn(place.getColumn() + n);
  }
}

}  // namespace

void PhysicalRange::offsetColumn(int n) {
  shiftColumn(m_low, n);
  shiftColumn(m_high, n);
}

std::string PhysicalRange::str() const {
  std::string text;
  if (m_low.isSpecified()) {
    text += "low=" + m_low.str();
  }
  if (m_high.isSpecified()) {
    text += " high=" + m_high.str();
  }
  return text;
}

bool PhysicalRange::isInside(PhysicalRect const& rect) const {
  return m_low.isInside(rect) && m_high.isInside(rect);
}

}  // namespace constraints
}  // namespace kpe
