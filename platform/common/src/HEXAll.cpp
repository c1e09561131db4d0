#include "HEXAll.h"

#include <utility>

HEXAll::HEXAll(ComMsgMgrInstance message) : m_message(std::move(message)), m_line(m_message.getLine()) {}

void HEXAll::print() const { ComMsgMgr::sendMessage(m_message); }
