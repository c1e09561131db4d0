#ifndef TARVO_COMMSGMGRINSTANCE_H
#define TARVO_COMMSGMGRINSTANCE_H

#include <string>
#include <vector>

#include "ComMsgMgr.h"

// A message held as an object: it can carry typed annotations and be sent later, or be put
// into an HEXAll.
class ComMsgMgrInstance {
 public:
  struct MetaAnnotation {
    int index;
    ComMsgMgr::MetaType type;
    std::string name;
    std::string value;
  };

  struct createInstance {
    template <typename... Args>
    static ComMsgMgrInstance eval(int count, char const* srcFile, int srcLine, std::string const& component,
                                  ComMsgMgr::MsgMask mask, char const* id, Args const&... args) {
      (void)count;
      return ComMsgMgrInstance(srcFile, srcLine, component, mask, id, {std::string(args)...});
    }
  };

  ComMsgMgrInstance(char const* srcFile, int srcLine, std::string component, ComMsgMgr::MsgMask mask,
                    std::string const& id, std::vector<std::string> args);

  void attachMetaType(int index, ComMsgMgr::MetaType type, std::string const& name, std::string const& value);

  std::string const& getComponent() const { return m_component; }
  ComMsgMgr::MsgMask getMask() const { return m_mask; }
  // The id as sent ("@75-407@%s") and its number ("75-407").
  std::string const& getIdText() const { return m_idText; }
  std::string const& getId() const { return m_id; }
  std::vector<std::string> const& getArgs() const { return m_args; }
  std::vector<MetaAnnotation> const& getMetaTypes() const { return m_metas; }
  std::string const& getSourceFile() const { return m_srcFile; }
  int getSourceLine() const { return m_srcLine; }

  // The wording with its placeholders filled.
  std::string getText() const;
  // "SEVERITY: [component id] text", as the default sink prints it.
  std::string getLine() const;

 private:
  std::string m_srcFile;
  int m_srcLine;
  std::string m_component;
  ComMsgMgr::MsgMask m_mask;
  std::string m_idText;
  std::string m_id;
  std::vector<std::string> m_args;
  std::vector<MetaAnnotation> m_metas;
};

#endif
