#include "TQLogicalArchTypes.h"

#include <cstddef>

namespace Tarvo {
namespace Frameworks {

namespace {

char const* const kUnknownText = "unknown";

// The texts of one enumeration, indexed by value; the last value of each is its unknown one.
template <typename Enum>
struct EnumTexts;

template <>
struct EnumTexts<TQLogicalInstanceType> {
  static constexpr char const* texts[] = {"kpeip", "nocip", "plip"};
};
template <>
struct EnumTexts<TQLogicalConnectionDataFlowTypeEnum> {
  static constexpr char const* texts[] = {"stream", "mem", "event"};
};
template <>
struct EnumTexts<TQLogicalConnectionMemModeEnum> {
  static constexpr char const* texts[] = {"read-only", "write-only", "read-write"};
};
template <>
struct EnumTexts<TQLogicalConnectionAddrTypeEnum> {
  static constexpr char const* texts[] = {"virtual", "physical"};
};
template <>
struct EnumTexts<TQLogicalConnectionDirectionEnum> {
  static constexpr char const* texts[] = {"kpe_to_pl", "pl_to_kpe", "kpe_to_noc", "noc_to_kpe",
                                          "noc_to_pl", "pl_to_noc", "noc_to_noc", "pl_to_pl"};
};
template <>
struct EnumTexts<TQLogicalPortDirectionTypeEnum> {
  static constexpr char const* texts[] = {"master", "slave"};
};
template <>
struct EnumTexts<TQLogicalIPTypeEnum> {
  static constexpr char const* texts[] = {"mem", "stream"};
};

template <typename Enum>
constexpr std::size_t knownCount() {
  return sizeof(EnumTexts<Enum>::texts) / sizeof(EnumTexts<Enum>::texts[0]);
}

template <typename Enum>
char const* textOf(Enum value) {
  auto const index = static_cast<std::size_t>(value);
  return index < knownCount<Enum>() ? EnumTexts<Enum>::texts[index] : kUnknownText;
}

}  // namespace

char const* toText(TQLogicalInstanceType value) {
  return textOf(value);
}
char const* toText(TQLogicalConnectionDataFlowTypeEnum value) {
  return textOf(value);
}
char const* toText(TQLogicalConnectionMemModeEnum value) {
  return textOf(value);
}
char const* toText(TQLogicalConnectionAddrTypeEnum value) {
  return textOf(value);
}
char const* toText(TQLogicalConnectionDirectionEnum value) {
  return textOf(value);
}
char const* toText(TQLogicalPortDirectionTypeEnum value) {
  return textOf(value);
}
char const* toText(TQLogicalIPTypeEnum value) {
  return textOf(value);
}

template <typename Enum>
Enum fromText(std::string const& text) {
  static_assert(knownCount<Enum>() == static_cast<std::size_t>(Enum::Unknown), "unknown follows the known values");
  for (std::size_t index = 0; index < knownCount<Enum>(); ++index)
    if (text == EnumTexts<Enum>::texts[index]) return static_cast<Enum>(index);
  return static_cast<Enum>(knownCount<Enum>());
}

template TQLogicalInstanceType fromText<TQLogicalInstanceType>(std::string const&);
template TQLogicalConnectionDataFlowTypeEnum fromText<TQLogicalConnectionDataFlowTypeEnum>(std::string const&);
template TQLogicalConnectionMemModeEnum fromText<TQLogicalConnectionMemModeEnum>(std::string const&);
template TQLogicalConnectionAddrTypeEnum fromText<TQLogicalConnectionAddrTypeEnum>(std::string const&);
template TQLogicalConnectionDirectionEnum fromText<TQLogicalConnectionDirectionEnum>(std::string const&);
template TQLogicalPortDirectionTypeEnum fromText<TQLogicalPortDirectionTypeEnum>(std::string const&);
template TQLogicalIPTypeEnum fromText<TQLogicalIPTypeEnum>(std::string const&);

}  // namespace Frameworks
}  // namespace Tarvo
