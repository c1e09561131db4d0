#include "HPAParamMgr.h"

HPAParamMgr& HPAParamMgr::getParamMgr() {
  static HPAParamMgr store;
  return store;
}

void HPAParamMgr::setValue(std::string const& name, std::string const& text) {
  std::lock_guard<std::mutex> lock(m_mutex);
  m_values[name] = text;
}

void HPAParamMgr::unsetValue(std::string const& name) {
  std::lock_guard<std::mutex> lock(m_mutex);
  m_values.erase(name);
}

bool HPAParamMgr::hasValue(std::string const& name) const {
  std::lock_guard<std::mutex> lock(m_mutex);
  return m_values.count(name) != 0;
}

std::string HPAParamMgr::getValue(std::string const& name) const {
  std::lock_guard<std::mutex> lock(m_mutex);
  auto found = m_values.find(name);
  return found == m_values.end() ? std::string() : found->second;
}

bool HPAParamMgr::getValueAsBool(std::string const& name) const {
  std::string const text = getValue(name);
  return text == "true" || text == "1";
}
