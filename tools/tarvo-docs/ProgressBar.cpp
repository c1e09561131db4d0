#include "ProgressBar.h"

#include <algorithm>
#include <chrono>
#include <string>

#include "HDGUIStatus.h"

namespace tarvo_docs {

ProgressBar::ProgressBar(HDGUIStatus const& status, std::ostream& err, bool enabled) : m_status(status), m_err(err) {
  if (!enabled) return;
  m_thread = std::thread([this] {
    while (!m_done) {
      draw();
      std::this_thread::sleep_for(std::chrono::milliseconds(100));
    }
  });
}

ProgressBar::~ProgressBar() {
  if (!m_thread.joinable()) return;
  m_done = true;
  m_thread.join();
  draw();
  m_err << "\n" << std::flush;
}

void ProgressBar::draw() const {
  int const width = 30;
  double const percent = m_status.getPercent();
  int const filled = static_cast<int>(percent * width / 100.0 + 0.5);
  std::string bar(static_cast<std::size_t>(std::max(0, std::min(width, filled))), '#');
  bar.resize(width, ' ');
  m_err << "\r[" << bar << "] " << static_cast<int>(percent) << "% " << m_status.getMessage() << std::flush;
}

}  // namespace tarvo_docs
