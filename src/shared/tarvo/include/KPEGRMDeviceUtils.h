#ifndef TARVO_KPEGRMDEVICEUTILS_H
#define TARVO_KPEGRMDEVICEUTILS_H

#include <string>

#include "GRMBel.h"

class HDARPart;

// Converts between a device site and its forms in the exchange documents: a name without
// "/", and a place in the shim row (column and channel index along the tile).
class KPEGRMDeviceUtils {
 public:
  // The site of a document name: the "/" between tile and site was written as "_", so the
  // separator is the fourth underscore of a "KPE_ML..." name and the third of any other.
  // Bad for the empty name and for names the device doesn't know.
  static GRMBel getGRMBel(HDARPart const& part, std::string const& name);
  // The hierarchical name with every "/" as "_"; empty for a bad site.
  static std::string getHierName(HDARPart const& part, GRMBel const& bel);
  // The shim column and the channel index from the KPE oracle; -1 for a bad site and for a
  // site the oracle leaves unanswered.
  static int getShimColumn(HDARPart const& part, GRMBel const& bel);
  static int getIndexOfChanInShim(HDARPart const& part, GRMBel const& bel);
};

#endif
