#ifndef TARVO_HDGUISTATUS_H
#define TARVO_HDGUISTATUS_H

#include <mutex>
#include <string>

// Progress of a long read or write. The library updates it field by field under the mutex,
// so that another thread may poll it while the work runs.
class HDGUIStatus {
 public:
  HDGUIStatus() = default;
  HDGUIStatus(HDGUIStatus const&) = delete;
  HDGUIStatus& operator=(HDGUIStatus const&) = delete;

  // Sets the message text and the flag that says a message was set.
  void setMessage(std::string const& text);
  void setPercent(double percent);

  std::string getMessage() const;
  double getPercent() const;
  bool getMessageSet() const;

 private:
  std::string m_message;
  double m_percent = 0.0;
  mutable std::mutex m_mutex;
  bool m_messageSet = false;
};

#endif
