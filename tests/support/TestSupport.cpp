#include "TestSupport.h"

#include <boost/filesystem.hpp>

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace fs = boost::filesystem;

namespace tarvo_test {

std::string dataPath(std::string const& relative) {
  char const* root = std::getenv("TARVO_TEST_DATA");
  std::string const base = root != nullptr ? root : TARVO_TEST_DATA_DIR;
  return relative.empty() ? base : base + "/" + relative;
}

std::string readFile(std::string const& path) {
  std::ifstream in(path, std::ios_base::binary);
  if (!in) throw std::runtime_error("cannot read test file " + path);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

void writeFile(std::string const& path, std::string const& text) {
  std::ofstream out(path, std::ios_base::binary);
  out << text;
  if (!out) throw std::runtime_error("cannot write test file " + path);
}

TempDir::TempDir() {
  fs::path const dir = fs::temp_directory_path() / fs::unique_path("tarvo-test-%%%%-%%%%-%%%%");
  fs::create_directories(dir);
  m_path = dir.string();
}

TempDir::~TempDir() {
  boost::system::error_code error;
  fs::remove_all(m_path, error);
}

MessageCapture::MessageCapture() {
  ComMsgMgr::setDefaultSinkEnabled(false);
  m_sinkId = ComMsgMgr::addSink([this](ComMsgMgrInstance const& message) { m_messages.push_back(message); });
}

MessageCapture::~MessageCapture() {
  ComMsgMgr::removeSink(m_sinkId);
  ComMsgMgr::setDefaultSinkEnabled(true);
}

std::string summaryOf(ComMsgMgrInstance const& message) {
  std::string line = message.getId() + "(";
  for (std::size_t i = 0; i < message.getArgs().size(); ++i)
    line += (i == 0 ? "" : "|") + message.getArgs()[i];
  return line + ")";
}

std::string messageOf(HEXAll const& error) {
  return summaryOf(error.getMessage());
}

std::string joinedOf(ComMsgMgrInstance const& message) {
  std::string text = message.getId();
  for (std::string const& arg : message.getArgs())
    text += "|" + arg;
  return text;
}

std::vector<std::string> MessageCapture::summary() const {
  std::vector<std::string> lines;
  for (ComMsgMgrInstance const& message : m_messages)
    lines.push_back(summaryOf(message));
  return lines;
}

}  // namespace tarvo_test
