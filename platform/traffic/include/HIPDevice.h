#ifndef TARVO_HIPDEVICE_H
#define TARVO_HIPDEVICE_H

#include <memory>
#include <string>

#include "NOCModel.h"

namespace DevHrdIP {

// A device as the traffic tools see it: a name and, on devices that have one, the NoC.
class HIPDevice {
 public:
  explicit HIPDevice(std::string const& name);
  ~HIPDevice();
  HIPDevice(HIPDevice const&) = delete;
  HIPDevice& operator=(HIPDevice const&) = delete;

  std::string const& getName() const { return m_name; }
  // Null on a device without a NoC.
  NOCModel const* getNOCModel() const { return m_nocModel.get(); }
  NOCModel* getNOCModel() { return m_nocModel.get(); }
  // The device's NoC, made empty on the first call.
  NOCModel& createNOCModel();

 private:
  std::string m_name;
  std::unique_ptr<NOCModel> m_nocModel;
};

}  // namespace DevHrdIP

#endif
