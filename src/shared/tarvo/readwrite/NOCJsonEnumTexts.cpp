#include "NOCJsonEnumTexts.h"

#include <iterator>
#include <unordered_map>

using namespace DevHrdIP::Definitions;

namespace NOC {

namespace {

// One table per enumeration, read in both directions: a value writes as the first text of
// its rows, and every text of a row reads as its value.
template <typename Enum>
struct TextRow {
  Enum value;
  char const* text;
};

TextRow<AxiProt> const kAxiProtTexts[] = {{AXI_MM, "AXI_MM"}, {AXI_STRM, "AXI_STRM"}};
TextRow<TrafficClass> const kTrafficClassTexts[] = {{TC_BE, "BE"}, {TC_LL, "LL"}, {TC_ISOC, "ISOC"}, {TC_BW, "BW"}};
TextRow<Write_Order> const kWriteOrderTexts[] = {
    {WO_STRICT, "strict"}, {WO_RELAXED, "relaxed"}, {WO_DOORBELL, "doorbell"}};
// The port bits also read under their memory-controller names.
TextRow<PORT_TYPE> const kPortTypeTexts[] = {{PORT0, "PORT0"},     {PORT1, "PORT1"},     {PORT2, "PORT2"},
                                             {PORT3, "PORT3"},     {PORT0, "PC0_PORT0"}, {PORT1, "PC0_PORT1"},
                                             {PORT2, "PC1_PORT0"}, {PORT3, "PC1_PORT1"}};

template <typename Enum, std::size_t Count>
Enum fromText(TextRow<Enum> const (&rows)[Count], std::string const& text, Enum fallback) {
  for (TextRow<Enum> const& row : rows)
    if (text == row.text) return row.value;
  return fallback;
}

template <typename Enum, std::size_t Count>
char const* toText(TextRow<Enum> const (&rows)[Count], int value, char const* fallback) {
  for (TextRow<Enum> const& row : rows)
    if (static_cast<int>(row.value) == value) return row.text;
  return fallback;
}

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
  return fromText(kAxiProtTexts, text, AXI_MM);
}

char const* axiProtToText(int protocol) {
  return toText(kAxiProtTexts, protocol, "AXI_STRM");
}

TrafficClass trafficClassFromText(std::string const& text) {
  return fromText(kTrafficClassTexts, text, TC_BE);
}

char const* trafficClassToText(int trafficClass) {
  return toText(kTrafficClassTexts, trafficClass, "BW");
}

Write_Order writeOrderFromText(std::string const& text) {
  return fromText(kWriteOrderTexts, text, WO_INVALID);
}

char const* writeOrderToText(int order) {
  return toText(kWriteOrderTexts, order, "invalid");
}

PORT_TYPE portTypeFromText(std::string const& text) {
  return fromText(kPortTypeTexts, text, PORT_INVALID);
}

char const* portTypeToText(int port) {
  return toText(kPortTypeTexts, port, "PORTERR");
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
