#ifndef TARVO_TQLOGICALARCHTYPES_H
#define TARVO_TQLOGICALARCHTYPES_H

#include <string>

namespace Tarvo {
namespace Frameworks {

// The name that every object of the logical architecture carries.
struct _Named {
  _Named() = default;
  explicit _Named(std::string const& name) : m_name(name) {}

  std::string m_name;
};

// The enumerations of the logical architecture. Their texts are also the texts of the
// document; a value outside a table has the text "unknown".
enum class TQLogicalInstanceType : unsigned { KPEIP = 0, NOCIP = 1, PLIP = 2, Unknown = 3 };

// The kind of data a port or a connection carries.
enum class TQLogicalConnectionDataFlowTypeEnum : unsigned { Stream = 0, Mem = 1, Event = 2, Unknown = 3 };

enum class TQLogicalConnectionMemModeEnum : unsigned { ReadOnly = 0, WriteOnly = 1, ReadWrite = 2, Unknown = 3 };

enum class TQLogicalConnectionAddrTypeEnum : unsigned { Virtual = 0, Physical = 1, Unknown = 2 };

enum class TQLogicalConnectionDirectionEnum : unsigned {
  KpeToPl = 0,
  PlToKpe = 1,
  KpeToNoc = 2,
  NocToKpe = 3,
  NocToPl = 4,
  PlToNoc = 5,
  NocToNoc = 6,
  PlToPl = 7,
  Unknown = 8
};

enum class TQLogicalPortDirectionTypeEnum : unsigned { Master = 0, Slave = 1, Unknown = 2 };

// Numbered the other way round from the data-flow type: "mem" is 0.
enum class TQLogicalIPTypeEnum : unsigned { Mem = 0, Stream = 1, Unknown = 2 };

char const* toText(TQLogicalInstanceType value);
char const* toText(TQLogicalConnectionDataFlowTypeEnum value);
char const* toText(TQLogicalConnectionMemModeEnum value);
char const* toText(TQLogicalConnectionAddrTypeEnum value);
char const* toText(TQLogicalConnectionDirectionEnum value);
char const* toText(TQLogicalPortDirectionTypeEnum value);
char const* toText(TQLogicalIPTypeEnum value);

// The value whose text is `text`, byte for byte; any other text gives the unknown value.
// Defined for the seven enumerations above.
template <typename Enum>
Enum fromText(std::string const& text);

}  // namespace Frameworks
}  // namespace Tarvo

#endif
