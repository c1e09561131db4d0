#include "HDGUIStatus.h"

void HDGUIStatus::setMessage(std::string const& text) {
  std::lock_guard<std::mutex> lock(m_mutex);
  if (&text != &m_message) m_message = text;
  m_messageSet = true;
}

void HDGUIStatus::setPercent(double percent) {
  std::lock_guard<std::mutex> lock(m_mutex);
  m_percent = percent;
}

std::string HDGUIStatus::getMessage() const {
  std::lock_guard<std::mutex> lock(m_mutex);
  return m_message;
}

double HDGUIStatus::getPercent() const {
  std::lock_guard<std::mutex> lock(m_mutex);
  return m_percent;
}

bool HDGUIStatus::getMessageSet() const {
  std::lock_guard<std::mutex> lock(m_mutex);
  return m_messageSet;
}
