#ifndef TARVO_PHYSICALRANGE_H
#define TARVO_PHYSICALRANGE_H

#include <string>

#include "PhysicalSpec.h"

namespace kpe {
namespace constraints {

// The abstract face of a range of places from low to high.
class PhysicalRangeInterface {
 public:
  virtual ~PhysicalRangeInterface() = default;
  virtual PhysicalSpec const& getLow() const = 0;
  virtual PhysicalSpec const& getHigh() const = 0;
  virtual HDPoint<int> getLowXY() const = 0;
  virtual HDPoint<int> getHighXY() const = 0;
  virtual PhysicalRect getRect() const = 0;
  virtual void setLow(PhysicalSpec const& low) = 0;
  virtual void setHigh(PhysicalSpec const& high) = 0;
  virtual void setLowXY(HDPoint<int> const& xy) = 0;
  virtual void setHighXY(HDPoint<int> const& xy) = 0;
  virtual void setRect(PhysicalRect const& rect) = 0;
  // Low must be specified; a lone low is valid; a pair is valid only as two shim or two
  // tile places (so two mem places are not, though one mem place is).
  virtual bool isValid() const;
};

class PhysicalRange : public PhysicalRangeInterface {
 public:
  PhysicalRange() = default;
  PhysicalRange(PhysicalSpec const& low, PhysicalSpec const& high) : m_low(low), m_high(high) {}
  PhysicalRange(PhysicalRange const&) = default;
  PhysicalRange& operator=(PhysicalRange const&) = default;

  PhysicalSpec const& getLow() const override { return m_low; }
  PhysicalSpec const& getHigh() const override { return m_high; }
  HDPoint<int> getLowXY() const override { return m_low.getXY(); }
  HDPoint<int> getHighXY() const override { return m_high.getXY(); }
  PhysicalRect getRect() const override;
  void setLow(PhysicalSpec const& low) override { m_low = low; }
  void setHigh(PhysicalSpec const& high) override { m_high = high; }
  void setLowXY(HDPoint<int> const& xy) override { m_low.setXY(xy); }
  void setHighXY(HDPoint<int> const& xy) override { m_high.setXY(xy); }
  void setRect(PhysicalRect const& rect) override;
  // Shifts the column of low and of high where it is set and no name is.
  virtual void offsetColumn(int n);
  virtual std::string str() const;
  virtual bool isInside(PhysicalRect const& rect) const;

 private:
  PhysicalSpec m_low;
  PhysicalSpec m_high;
};

}  // namespace constraints
}  // namespace kpe

#endif
