#include "CapturedMessage.h"

#include <cstdlib>

#include "ComMsgMgr.h"
#include "ComMsgMgrInstance.h"

namespace tarvo_python {

MessagePlace::MessagePlace(ComMsgMgrInstance const& message) {
  for (auto const& meta : message.getMetaTypes()) {
    if (meta.type == ComMsgMgr::META_FILE) file = meta.value;
    if (meta.type == ComMsgMgr::META_LINE) line = std::atoi(meta.value.c_str());
    if (meta.type == ComMsgMgr::META_COLUMN) column = std::atoi(meta.value.c_str());
  }
}

CapturedMessage CapturedMessage::of(ComMsgMgrInstance const& message) {
  return {ComMsgMgr::severityText(message.getMask()), message.getId(), message.getText(), message.getLine(),
          MessagePlace(message)};
}

}  // namespace tarvo_python
