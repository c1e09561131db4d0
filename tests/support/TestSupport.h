#ifndef TARVO_TESTS_TESTSUPPORT_H
#define TARVO_TESTS_TESTSUPPORT_H

#include <string>
#include <vector>

#include "ComMsgMgrInstance.h"
#include "HEXAll.h"

namespace tarvo_test {

// The test documents folder (tests/data), or a file in it.
std::string dataPath(std::string const& relative = std::string());

std::string readFile(std::string const& path);
void writeFile(std::string const& path, std::string const& text);

// A message as "id(arg1|arg2)", for compact exact assertions; messageOf gives that of the
// message an HEXAll carries.
std::string summaryOf(ComMsgMgrInstance const& message);
std::string messageOf(HEXAll const& error);
// A message as "id|arg1|arg2".
std::string joinedOf(ComMsgMgrInstance const& message);

// joinedOf the message that `action` throws as an HEXAll, or "nothing thrown".
template <typename Action>
std::string thrown(Action action) {
  try {
    action();
  } catch (HEXAll const& error) {
    return joinedOf(error.getMessage());
  }
  return "nothing thrown";
}

// A fresh directory that is removed, with all in it, when the object goes.
class TempDir {
 public:
  TempDir();
  ~TempDir();
  TempDir(TempDir const&) = delete;
  TempDir& operator=(TempDir const&) = delete;

  std::string const& path() const { return m_path; }
  std::string file(std::string const& name) const { return m_path + "/" + name; }

 private:
  std::string m_path;
};

// Collects every message sent while it lives, and keeps them off standard error.
class MessageCapture {
 public:
  MessageCapture();
  ~MessageCapture();
  MessageCapture(MessageCapture const&) = delete;
  MessageCapture& operator=(MessageCapture const&) = delete;

  std::vector<ComMsgMgrInstance> const& messages() const { return m_messages; }
  // Each message as "id(arg1|arg2)", for compact exact assertions.
  std::vector<std::string> summary() const;
  void clear() { m_messages.clear(); }

 private:
  int m_sinkId;
  std::vector<ComMsgMgrInstance> m_messages;
};

}  // namespace tarvo_test

#endif
