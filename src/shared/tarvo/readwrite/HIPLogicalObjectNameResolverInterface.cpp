#include "HIPLogicalObjectNameResolverInterface.h"

HIPLogicalObjectNameResolverInterface::~HIPLogicalObjectNameResolverInterface() = default;

int HIPLogicalObjectNameResolverInterfaceIdentity::toNetlistInstances(std::string const& name,
                                                                      std::vector<std::string>& out) {
  out.push_back(toNetlistInstance(name));
  return static_cast<int>(out.size());
}

int HIPLogicalObjectNameResolverInterfaceIdentity::fromNetlistInstances(std::string const& name,
                                                                        std::vector<std::string>& out) {
  out.push_back(fromNetlistInstance(name));
  return static_cast<int>(out.size());
}
