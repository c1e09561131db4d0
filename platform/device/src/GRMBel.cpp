#include "GRMBel.h"

#include "GRMSiteTable.h"

std::string GRMBel::getHierarchicalName1() const {
  return GRMSiteTable::hierarchicalName(*this);
}
