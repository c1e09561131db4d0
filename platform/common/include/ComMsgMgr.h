#ifndef TARVO_COMMSGMGR_H
#define TARVO_COMMSGMGR_H

#include <functional>
#include <string>
#include <vector>

class ComMsgMgrInstance;

// Messages by id. An id such as "@75-407@%s" is looked up in the catalogue of the data
// directory, its placeholders are filled with the arguments, and the message goes to the
// sinks. The default sink writes "SEVERITY: [component id] text" to standard error.
class ComMsgMgr {
 public:
  enum MsgMask : unsigned {
    MSG_INFO = 0x4000000,
    MSG_WARNING = 0x8000000,
    MSG_CRITICAL_WARNING = 0x10000000,
    MSG_ERROR = 0x20000000
  };
  enum MetaType { META_NONE = 0, META_FILE = 1, META_LINE = 2, META_COLUMN = 3, META_OBJECT = 4 };

  using Sink = std::function<void(ComMsgMgrInstance const&)>;

  struct sendMsg {
    // `count` is the number of message arguments behind `id`; each is a character string.
    template <typename... Args>
    static void eval(int count, char const* srcFile, int srcLine, std::string const& component, MsgMask mask,
                     char const* id, Args const&... args) {
      send(count, srcFile, srcLine, component, mask, id, {std::string(args)...});
    }
  };

  static void sendMessage(ComMsgMgrInstance const& message);

  // Sinks receive every message sent after they are added; the id names the sink for removal.
  static int addSink(Sink sink);
  static void removeSink(int sinkId);
  static void setDefaultSinkEnabled(bool enabled);

  // "INFO", "WARNING", "CRITICAL WARNING" or "ERROR"; other masks read as "INFO".
  static char const* severityText(MsgMask mask);
  // The catalogue wording of an id number such as "75-407", or null if the catalogue lacks it.
  static std::string const* lookupWording(std::string const& idNumber);

 private:
  static void send(int count, char const* srcFile, int srcLine, std::string const& component, MsgMask mask,
                   char const* id, std::vector<std::string> args);
};

#endif
