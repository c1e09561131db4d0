#ifndef TARVO_HDARPARTLOADER_H
#define TARVO_HDARPARTLOADER_H

#include <iosfwd>
#include <memory>
#include <string>

#include "HCRapidJsonReadWriteUtils.h"
#include "HDARPart.h"

// Builds an HDARPart from a device description (the format of devices/device.schema.json in
// the data directory): the part takes the device's "name" and the tiles and sites of its
// "kpeShimRow" section. A device without that section has a part with no sites. Failures
// leave by the error operations of HCRapidJsonReadWriteUtils.
class HDARPartLoader {
 public:
  static char const* const kSection;

  static std::unique_ptr<HDARPart> readFromFile(std::string const& fileName);
  // Parses and checks the description against the device schema.
  static std::unique_ptr<HDARPart> readFromStream(std::istream& in, std::string const& fileName);
  // From a description already parsed and checked; `fileName` names it in messages.
  static std::unique_ptr<HDARPart> build(HCRapidJsonReadWriteUtils::Value const& root, std::string const& fileName);

  // The absolute path of the schema of device descriptions.
  static std::string getSchemaFile();
};

#endif
