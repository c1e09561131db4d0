#ifndef TARVO_HPAPARAMMGR_H
#define TARVO_HPAPARAMMGR_H

#include <map>
#include <mutex>
#include <string>

// The tool's parameter store: named text values that a program sets and the library reads.
class HPAParamMgr {
 public:
  static HPAParamMgr& getParamMgr();

  void setValue(std::string const& name, std::string const& text);
  void unsetValue(std::string const& name);
  bool hasValue(std::string const& name) const;
  // The text of the parameter, empty when it is not set.
  std::string getValue(std::string const& name) const;
  // "true" and "1" read as true; anything else, or an unset parameter, as false.
  bool getValueAsBool(std::string const& name) const;

 private:
  HPAParamMgr() = default;
  mutable std::mutex m_mutex;
  std::map<std::string, std::string> m_values;
};

#endif
