#include "ComMsgMgrInstance.h"

#include <utility>

namespace {

// "@75-407@%s" -> "75-407"; a text without the two @ is its own number.
std::string idNumberOf(std::string const& idText) {
  if (idText.size() < 2 || idText[0] != '@') return idText;
  std::string::size_type const close = idText.find('@', 1);
  return close == std::string::npos ? idText : idText.substr(1, close - 1);
}

// Fills each %s of `wording` with the next argument; %% is a percent sign. Arguments left
// over are appended, so that nothing a message carries is lost.
std::string fill(std::string const& wording, std::vector<std::string> const& args) {
  std::string text;
  std::size_t next = 0;
  for (std::size_t i = 0; i < wording.size(); ++i) {
    if (wording[i] == '%' && i + 1 < wording.size() && (wording[i + 1] == 's' || wording[i + 1] == '%')) {
      if (wording[i + 1] == '%')
        text += '%';
      else if (next < args.size())
        text += args[next++];
      ++i;
    } else {
      text += wording[i];
    }
  }
  for (; next < args.size(); ++next) text += (next == 0 ? " " : ", ") + args[next];
  return text;
}

}  // namespace

ComMsgMgrInstance::ComMsgMgrInstance(char const* srcFile, int srcLine, std::string component,
                                     ComMsgMgr::MsgMask mask, std::string const& id, std::vector<std::string> args)
    : m_srcFile(srcFile == nullptr ? "" : srcFile),
      m_srcLine(srcLine),
      m_component(std::move(component)),
      m_mask(mask),
      m_idText(id),
      m_id(idNumberOf(id)),
      m_args(std::move(args)) {}

void ComMsgMgrInstance::attachMetaType(int index, ComMsgMgr::MetaType type, std::string const& name,
                                       std::string const& value) {
  m_metas.push_back(MetaAnnotation{index, type, name, value});
}

std::string ComMsgMgrInstance::getText() const {
  std::string const* wording = ComMsgMgr::lookupWording(m_id);
  if (wording != nullptr) return fill(*wording, m_args);
  // No wording: the id and the arguments still say what happened.
  std::string text = "Message " + m_idText;
  for (std::size_t i = 0; i < m_args.size(); ++i) text += (i == 0 ? ": " : ", ") + ("'" + m_args[i] + "'");
  return text;
}

std::string ComMsgMgrInstance::getLine() const {
  return std::string(ComMsgMgr::severityText(m_mask)) + ": [" + m_component + " " + m_id + "] " + getText();
}
