#include "JsonOutputStream.h"

#include <algorithm>

namespace tarvo {
namespace jsonio {

JsonOutputStream::JsonOutputStream(std::ostream& out, std::size_t blockSize)
    : m_out(out), m_buffer(std::max<std::size_t>(blockSize, 1)) {}

JsonOutputStream::~JsonOutputStream() {
  drain();
}

void JsonOutputStream::drain() {
  if (m_used != 0) m_out.write(m_buffer.data(), static_cast<std::streamsize>(m_used));
  m_used = 0;
}

void JsonOutputStream::Flush() {
  drain();
  m_out.flush();
}

}  // namespace jsonio
}  // namespace tarvo
