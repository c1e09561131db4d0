#include "DevHrdIPDefinitions.h"

#include <iterator>

namespace DevHrdIP {
namespace Definitions {

namespace {
#define DEVHRDIP_COMP_TYPE_ROLE(name, role) role,
CompRole const kRoles[] = {DEVHRDIP_COMP_TYPE_ROWS(DEVHRDIP_COMP_TYPE_ROLE)};
#undef DEVHRDIP_COMP_TYPE_ROLE
static_assert(std::size(kRoles) == 112, "one role per block kind");
}  // namespace

CompRole getCompRole(COMP_TYPE type) {
  int const row = static_cast<int>(type);
  if (row < 0 || row >= static_cast<int>(std::size(kRoles))) return ROLE_NONE;
  return kRoles[row];
}

bool isKpeArrayType(COMP_TYPE type) {
  return type >= KPE_NOC_IGU && type <= KPE_CASCADE;
}

}  // namespace Definitions
}  // namespace DevHrdIP
