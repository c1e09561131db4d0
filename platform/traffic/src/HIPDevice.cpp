#include "HIPDevice.h"

namespace DevHrdIP {

HIPDevice::HIPDevice(std::string const& name) : m_name(name) {}

HIPDevice::~HIPDevice() = default;

NOCModel& HIPDevice::createNOCModel() {
  if (!m_nocModel) m_nocModel.reset(new NOCModel());
  return *m_nocModel;
}

}  // namespace DevHrdIP
