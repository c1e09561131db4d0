#ifndef TARVO_BASENAMERESOLVER_H
#define TARVO_BASENAMERESOLVER_H

#include <string>
#include <vector>

namespace kpe {
namespace constraints {

// Translates names between a constraint document and a design. This class maps every name
// to itself; a derived class replaces the single-name or pattern operations and the list
// operations follow, messages included. An empty result means "no counterpart".
class BaseNameResolver {
 public:
  virtual ~BaseNameResolver();

  virtual std::string getScopeName() const;

  // Document name to design name.
  virtual std::string resolveNodeName(std::string const& name) const;
  virtual std::string resolvePortName(std::string const& name) const;
  virtual std::string resolveNetName(std::string const& name) const;

  // Translate the names in place; unresolved names are reported and dropped.
  virtual void resolveNodeNames(std::vector<std::string>& names) const;
  virtual void resolvePortNames(std::vector<std::string>& names) const;
  virtual void resolveNetNames(std::vector<std::string>& names) const;

  // Design name to document name.
  virtual std::string getDocumentNodeName(std::string const& name) const;
  virtual std::string getDocumentPortName(std::string const& name) const;
  virtual std::string getDocumentNetName(std::string const& name) const;

  // Design names to document names in place, by the getDocument...Name operations alone.
  virtual void resolveScopedNodeNames(std::vector<std::string>& names) const;
  virtual void resolveScopedPortNames(std::vector<std::string>& names) const;
  virtual void resolveScopedNetNames(std::vector<std::string>& names) const;

 protected:
  // Append every design name that `name` stands for to `out`.
  virtual void resolveNodePattern(std::string const& name, std::vector<std::string>& out) const;
  virtual void resolvePortPattern(std::string const& name, std::vector<std::string>& out) const;
  virtual void resolveNetPattern(std::string const& name, std::vector<std::string>& out) const;

  // When true the list operations send no message.
  bool quiet = false;
};

}  // namespace constraints
}  // namespace kpe

#endif
