#ifndef TARVO_HEXALGEXCEPTION_H
#define TARVO_HEXALGEXCEPTION_H

#include <exception>
#include <string>

// Marks a call that a correct caller never makes; the text names the class and operation.
class HEXAlgException : public std::exception {
 public:
  explicit HEXAlgException(std::string text) : m_text(std::move(text)) {}
  char const* what() const noexcept override { return m_text.c_str(); }

 private:
  std::string m_text;
};

#endif
