#ifndef TARVO_HDARSHIMROWGENERATOR_H
#define TARVO_HDARSHIMROWGENERATOR_H

#include <memory>
#include <string>
#include <vector>

#include "HDARPart.h"

// The size of a synthetic shim row: `columns` tiles from device column `firstColumn` on, each
// with `channelsPerTile` shim channels. Tiles are named in one of the two naming families:
// "KPE_SHIM_X<c>Y0", or "KPE_ML_SHIM_X<c>Y0" with `mlNaming`.
struct HDARShimRowShape {
  int columns = 1;
  int channelsPerTile = 1;
  int firstColumn = 0;
  bool mlNaming = false;
};

// Makes wide shim rows of a regular shape, for measuring readers and writers on realistic
// sizes. The shim column of a tile counts from 0 at `firstColumn`; its sites are "CH<i>" on
// channel i.
class HDARShimRowGenerator {
 public:
  static std::vector<HDARShimTile> makeShimRow(HDARShimRowShape const& shape);
  static std::unique_ptr<HDARPart> makePart(HDARShimRowShape const& shape, std::string const& partName);
  // The tile of shim column `shimColumn`.
  static std::string tileName(HDARShimRowShape const& shape, int shimColumn);
  static std::string siteName(int channel);
};

#endif
