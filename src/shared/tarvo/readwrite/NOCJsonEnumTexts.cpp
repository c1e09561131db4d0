#include "NOCJsonEnumTexts.h"

#include <iterator>
#include <unordered_map>

using namespace DevHrdIP::Definitions;

namespace NOC {

namespace {

#define NOC_COMP_TYPE_TEXT(name, role) #name,
char const* const kCompTypeTexts[] = {DEVHRDIP_COMP_TYPE_ROWS(NOC_COMP_TYPE_TEXT)};
#undef NOC_COMP_TYPE_TEXT
static_assert(std::size(kCompTypeTexts) == COMPERR + 1, "one text per block kind");

std::unordered_map<std::string, COMP_TYPE> makeCompTypeIndex() {
  std::unordered_map<std::string, COMP_TYPE> index;
  // The error row is left out: its text is no block kind.
  for (int row = 0; row < COMPERR; ++row)
    index.emplace(kCompTypeTexts[row], static_cast<COMP_TYPE>(row));
  return index;
}

}  // namespace

AxiProt axiProtFromText(std::string const& text) {
  return text == "AXI_STRM" ? AXI_STRM : AXI_MM;
}

char const* axiProtToText(int protocol) {
  return protocol == AXI_MM ? "AXI_MM" : "AXI_STRM";
}

TrafficClass trafficClassFromText(std::string const& text) {
  if (text == "LL") return TC_LL;
  if (text == "ISOC") return TC_ISOC;
  if (text == "BW") return TC_BW;
  return TC_BE;
}

char const* trafficClassToText(int trafficClass) {
  switch (trafficClass) {
    case TC_BE:
      return "BE";
    case TC_LL:
      return "LL";
    case TC_ISOC:
      return "ISOC";
    default:
      return "BW";
  }
}

Write_Order writeOrderFromText(std::string const& text) {
  if (text == "strict") return WO_STRICT;
  if (text == "relaxed") return WO_RELAXED;
  if (text == "doorbell") return WO_DOORBELL;
  return WO_INVALID;
}

char const* writeOrderToText(int order) {
  switch (order) {
    case WO_STRICT:
      return "strict";
    case WO_RELAXED:
      return "relaxed";
    case WO_DOORBELL:
      return "doorbell";
    default:
      return "invalid";
  }
}

PORT_TYPE portTypeFromText(std::string const& text) {
  if (text == "PORT0" || text == "PC0_PORT0") return PORT0;
  if (text == "PORT1" || text == "PC0_PORT1") return PORT1;
  if (text == "PORT2" || text == "PC1_PORT0") return PORT2;
  if (text == "PORT3" || text == "PC1_PORT1") return PORT3;
  return PORT_INVALID;
}

char const* portTypeToText(int port) {
  switch (port) {
    case PORT0:
      return "PORT0";
    case PORT1:
      return "PORT1";
    case PORT2:
      return "PORT2";
    case PORT3:
      return "PORT3";
    default:
      return "PORTERR";
  }
}

COMP_TYPE compTypeFromText(std::string const& text) {
  static std::unordered_map<std::string, COMP_TYPE> const index = makeCompTypeIndex();
  auto const found = index.find(text);
  return found == index.end() ? COMPERR : found->second;
}

char const* compTypeToText(int compType) {
  if (compType < 0 || compType >= COMPERR) return kCompTypeTexts[COMPERR];
  return kCompTypeTexts[compType];
}

}  // namespace NOC
