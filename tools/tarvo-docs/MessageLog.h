#ifndef TARVO_DOCS_MESSAGELOG_H
#define TARVO_DOCS_MESSAGELOG_H

#include <ostream>

class ComMsgMgrInstance;

namespace tarvo_docs {

// While it lives, the library's messages go to `err` (instead of the default sink's standard
// error) in the default sink's form, each followed by its place in the document where the
// reader knows it, and are counted by severity. `quiet` leaves only errors; without `print`
// they are only counted (a command that prints them as diagnostics).
class MessageLog {
 public:
  MessageLog(std::ostream& err, bool quiet, bool print = true);
  ~MessageLog();
  MessageLog(MessageLog const&) = delete;
  MessageLog& operator=(MessageLog const&) = delete;

  int errors() const { return m_errors; }
  int warnings() const { return m_warnings; }

 private:
  void take(ComMsgMgrInstance const& message);

  std::ostream& m_err;
  bool m_quiet;
  bool m_print;
  int m_errors = 0;
  int m_warnings = 0;
  int m_sink;
};

}  // namespace tarvo_docs

#endif
