#include "ToolOptions.h"

namespace tarvo_docs {

std::string ToolOptions::get(std::string const& name, std::string const& fallback) const {
  auto found = m_values.find(name);
  return found == m_values.end() || found->second.empty() ? fallback : found->second.back();
}

std::vector<std::string> ToolOptions::getAll(std::string const& name) const {
  auto found = m_values.find(name);
  return found == m_values.end() ? std::vector<std::string>() : found->second;
}

}  // namespace tarvo_docs
