#ifndef TARVO_DOCS_PROGRESSBAR_H
#define TARVO_DOCS_PROGRESSBAR_H

#include <atomic>
#include <ostream>
#include <thread>

class HDGUIStatus;

namespace tarvo_docs {

// Draws a progress bar on `err` from a second thread that polls the status record while the
// library works; does nothing when not `enabled`.
class ProgressBar {
 public:
  ProgressBar(HDGUIStatus const& status, std::ostream& err, bool enabled);
  ~ProgressBar();
  ProgressBar(ProgressBar const&) = delete;
  ProgressBar& operator=(ProgressBar const&) = delete;

 private:
  void draw() const;

  HDGUIStatus const& m_status;
  std::ostream& m_err;
  std::atomic<bool> m_done{false};
  std::thread m_thread;
};

}  // namespace tarvo_docs

#endif
