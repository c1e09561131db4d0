#include "MessageCapture.h"

#include "ComMsgMgr.h"
#include "ComMsgMgrInstance.h"

MessageCapture::MessageCapture() {
  m_sink = ComMsgMgr::addSink([this](ComMsgMgrInstance const& message) {
    m_messages.push_back(
        {ComMsgMgr::severityText(message.getMask()), message.getId(), message.getText(), message.getLine()});
  });
  ComMsgMgr::setDefaultSinkEnabled(false);
}

MessageCapture::~MessageCapture() {
  ComMsgMgr::removeSink(m_sink);
  ComMsgMgr::setDefaultSinkEnabled(true);
}
