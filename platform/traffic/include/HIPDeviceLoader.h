#ifndef TARVO_HIPDEVICELOADER_H
#define TARVO_HIPDEVICELOADER_H

#include <iosfwd>
#include <memory>
#include <string>

#include "HIPDevice.h"

namespace DevHrdIP {

// Reads device descriptions: JSON documents checked against devices/device.schema.json of the
// data directory, with a top-level section per concern. This loader reads the device's name
// and its "noc" section and passes over the other sections, which belong to their own
// loaders. Failures leave by the error operations of HCRapidJsonReadWriteUtils.
class HIPDeviceLoader {
 public:
  static std::unique_ptr<HIPDevice> readFromFile(std::string const& fileName);
  static std::unique_ptr<HIPDevice> readFromStream(std::istream& in, std::string const& fileName);

  // The small device compiled into the library, for tools and examples that have no device
  // file: a mesh of eight switches with PS, PL and array units and a memory controller.
  static std::unique_ptr<HIPDevice> makeDefaultDevice();
  // Its description, in the format readFromStream reads.
  static std::string const& getDefaultDeviceText();

  // The absolute path of the schema of device descriptions.
  static std::string getSchemaFile();
};

}  // namespace DevHrdIP

#endif
