#include "MessageLog.h"

#include "ComMsgMgr.h"
#include "ComMsgMgrInstance.h"

namespace tarvo_docs {

MessageLog::MessageLog(std::ostream& err, bool quiet, bool print)
    : m_err(err),
      m_quiet(quiet),
      m_print(print),
      m_sink(ComMsgMgr::addSink([this](ComMsgMgrInstance const& m) { take(m); })) {
  ComMsgMgr::setDefaultSinkEnabled(false);
}

MessageLog::~MessageLog() {
  ComMsgMgr::removeSink(m_sink);
  ComMsgMgr::setDefaultSinkEnabled(true);
}

void MessageLog::take(ComMsgMgrInstance const& message) {
  bool const error = message.getMask() == ComMsgMgr::MSG_ERROR;
  if (error) ++m_errors;
  if (message.getMask() == ComMsgMgr::MSG_WARNING || message.getMask() == ComMsgMgr::MSG_CRITICAL_WARNING) ++m_warnings;
  if (!m_print || (m_quiet && !error)) return;
  m_err << message.getLine() << '\n';
  // The constraint reader attaches the place of what it reports; it goes below the line.
  std::string file;
  std::string line;
  std::string column;
  for (ComMsgMgrInstance::MetaAnnotation const& meta : message.getMetaTypes()) {
    if (meta.type == ComMsgMgr::META_FILE) file = meta.value;
    if (meta.type == ComMsgMgr::META_LINE) line = meta.value;
    if (meta.type == ComMsgMgr::META_COLUMN) column = meta.value;
  }
  if (!line.empty()) m_err << "    at " << file << ":" << line << ":" << column << "\n";
}

}  // namespace tarvo_docs
