#ifndef TARVO_KPEPRJMETADATAMODEL_H
#define TARVO_KPEPRJMETADATAMODEL_H

#include <boost/any.hpp>

#include <cstddef>
#include <iosfwd>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace Tarvo {
namespace Frameworks {

class MetaDataPropertyTable;

// Named values that the tool attaches to a KPE project, each of one of six types, saved and
// loaded as one document: {"MetaData": [{"name": ..., "value": ...}, ...]}.
class KPEPrjMetaDataModel {
 public:
  KPEPrjMetaDataModel();
  ~KPEPrjMetaDataModel();
  KPEPrjMetaDataModel(KPEPrjMetaDataModel const&) = delete;
  KPEPrjMetaDataModel& operator=(KPEPrjMetaDataModel const&) = delete;

  // Each add replaces whatever value, of any type, the name held.
  void addBooleanProperty(std::string const& name, bool value);
  void addDoubleProperty(std::string const& name, double value);
  void addIntegrProperty(std::string const& name, int value);
  void addStringArrayProperty(std::string const& name, std::vector<std::string> const& value);
  void addStringProperty(std::string const& name, std::string const& value);
  void addULongProperty(std::string const& name, unsigned long long value);

  // True only for an Integer other than 0 under `name`; a Boolean reads as false. Tools
  // depend on this, so it stays.
  bool getBooleanProperty(std::string const& name) const;
  // Each get gives the zero value of its type unless a value of that type is held.
  double getDoubleProperty(std::string const& name) const;
  int getIntegrProperty(std::string const& name) const;
  unsigned long long getULongProperty(std::string const& name) const;
  std::string getStringProperty(std::string const& name);
  std::vector<std::string> getStringArrayProperty(std::string const& name);

  void removeProperty(std::string const& name);
  void clear();
  bool isEmpty() const;
  std::size_t getPropertyCount() const;
  // Makes this store a deep copy of `other`; always true.
  bool copy(KPEPrjMetaDataModel const& other);

  void setKPEPLIntfID(unsigned int id);
  unsigned int getKPEPLIntfID() const;
  void setKPEPLIntfIDString(std::string const& id);
  std::string getKPEPLIntfIDString();

  void writeToJSONStream(std::ostream& out) const;
  void writeToJSONFile(std::string const& fileName) const;
  // Merges the document into the store; `fileName` serves the messages only.
  void readFromJSONStream(std::string const& fileName, std::istream& in);
  void readFromJSONFile(std::string const& fileName);

  // The properties in name order, for callers that list them. A store that was read is
  // kept in a compact form of its own, and this map is made from it on the first call.
  std::map<std::string, boost::any> const& getProperties() const;

 private:
  template <typename T>
  T const* find(std::string const& name) const;
  template <typename T>
  T const* findRead(std::string const& name) const;
  // Makes m_properties the store, before a change.
  void own();

  // The store as read, while nothing changed it since; otherwise null, and m_properties is the
  // store.
  std::unique_ptr<MetaDataPropertyTable> m_read;
  mutable std::map<std::string, boost::any> m_properties;
  // Guards the making of m_properties from m_read by concurrent readers of the store.
  mutable std::mutex m_making;
  mutable bool m_made = false;
};

extern std::string const KPE_PL_INTF_ID;
extern std::string const KPE_PL_INTF_ID_STR;

}  // namespace Frameworks
}  // namespace Tarvo

#endif
