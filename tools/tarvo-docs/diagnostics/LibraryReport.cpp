#include "LibraryReport.h"

namespace tarvo_diagnostics {

MessageCapture::MessageCapture(LibraryReport& report, bool quiet)
    : m_sink(ComMsgMgr::addSink([&report](ComMsgMgrInstance const& message) { report.messages.push_back(message); })),
      m_quiet(quiet) {
  if (m_quiet) ComMsgMgr::setDefaultSinkEnabled(false);
}

MessageCapture::~MessageCapture() {
  ComMsgMgr::removeSink(m_sink);
  if (m_quiet) ComMsgMgr::setDefaultSinkEnabled(true);
}

}  // namespace tarvo_diagnostics
