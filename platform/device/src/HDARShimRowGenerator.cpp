#include "HDARShimRowGenerator.h"

std::vector<HDARShimTile> HDARShimRowGenerator::makeShimRow(HDARShimRowShape const& shape) {
  std::vector<HDARShimTile> tiles;
  for (int column = 0; column < shape.columns; ++column) {
    HDARShimTile tile;
    tile.name = tileName(shape, column);
    tile.column = shape.firstColumn + column;
    for (int channel = 0; channel < shape.channelsPerTile; ++channel)
      tile.sites.push_back(HDARShimSite{siteName(channel), column, channel});
    tiles.push_back(std::move(tile));
  }
  return tiles;
}

std::unique_ptr<HDARPart> HDARShimRowGenerator::makePart(HDARShimRowShape const& shape, std::string const& partName) {
  return std::make_unique<HDARPart>(partName, makeShimRow(shape));
}

std::string HDARShimRowGenerator::tileName(HDARShimRowShape const& shape, int shimColumn) {
  return std::string(shape.mlNaming ? "KPE_ML_SHIM_X" : "KPE_SHIM_X") + std::to_string(shimColumn) + "Y0";
}

std::string HDARShimRowGenerator::siteName(int channel) {
  return "CH" + std::to_string(channel);
}
