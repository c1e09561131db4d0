#ifndef TARVO_HIPLOGICALOBJECTNAMERESOLVERINTERFACE_H
#define TARVO_HIPLOGICALOBJECTNAMERESOLVERINTERFACE_H

#include <string>
#include <vector>

// Translates between the names of the NoC documents and the names of the netlist in the tool.
class HIPLogicalObjectNameResolverInterface {
 public:
  virtual ~HIPLogicalObjectNameResolverInterface();

  // Document name to netlist instance name; empty when there is no such instance.
  virtual std::string toNetlistInstance(std::string const& name) = 0;
  virtual std::string fromNetlistInstance(std::string const& name) = 0;
  // Append the single translation to `out` and return its new size.
  virtual int toNetlistInstances(std::string const& name, std::vector<std::string>& out) = 0;
  virtual int fromNetlistInstances(std::string const& name, std::vector<std::string>& out) = 0;
  // For names that need no instance: virtual instances, error slaves, external connections.
  virtual std::string toNetlistName(std::string const& name) = 0;
  virtual std::string fromNetlistName(std::string const& name) = 0;
  // Whether the name stands for itself in the design.
  virtual bool isNameInDesign(std::string const& name) = 0;
  // Writers ask with the empty name; true keeps reconfigurable partition paths out.
  virtual bool suppressRcfPaths(std::string const& name) = 0;
};

// Every name is itself.
class HIPLogicalObjectNameResolverInterfaceIdentity : public HIPLogicalObjectNameResolverInterface {
 public:
  std::string toNetlistInstance(std::string const& name) override { return name; }
  std::string fromNetlistInstance(std::string const& name) override { return name; }
  int toNetlistInstances(std::string const& name, std::vector<std::string>& out) override;
  int fromNetlistInstances(std::string const& name, std::vector<std::string>& out) override;
  std::string toNetlistName(std::string const& name) override { return name; }
  std::string fromNetlistName(std::string const& name) override { return name; }
  bool isNameInDesign(std::string const&) override { return true; }
  bool suppressRcfPaths(std::string const&) override { return false; }
};

#endif
