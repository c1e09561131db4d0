#ifndef TARVO_HDARSHIMROW_H
#define TARVO_HDARSHIMROW_H

#include <string>
#include <vector>

// The description of a device's KPE shim row, from which an HDARPart is made.

// A site of a shim tile. A site with a channel index is a shim channel and has a place in
// the shim array: `column` (the tile's device column when negative) and `channel`. A site
// without one (channel negative) is a site of the device that the array knows nothing of.
struct HDARShimSite {
  std::string name;
  int column = -1;
  int channel = -1;

  bool isShimChannel() const { return channel >= 0; }
};

// A shim tile: its name, its device column, its sites. The hierarchical name of a site is
// "tile/site".
struct HDARShimTile {
  std::string name;
  int column = 0;
  std::vector<HDARShimSite> sites;
};

#endif
