#ifndef TARVO_HEXALL_H
#define TARVO_HEXALL_H

#include <exception>
#include <string>

#include "ComMsgMgrInstance.h"

// The exception that carries a message. what() is the line the default sink would print.
class HEXAll : public std::exception {
 public:
  explicit HEXAll(ComMsgMgrInstance message);

  char const* what() const noexcept override { return m_line.c_str(); }
  // Sends the carried message to the message sinks.
  void print() const;
  ComMsgMgrInstance const& getMessage() const { return m_message; }

 private:
  ComMsgMgrInstance m_message;
  std::string m_line;
};

#endif
