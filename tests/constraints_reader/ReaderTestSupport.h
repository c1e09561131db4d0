#ifndef READERTESTSUPPORT_H
#define READERTESTSUPPORT_H

#include <cstdlib>
#include <string>

// The path of a document of tests/data/constraints_reader.
inline std::string readerTestFile(std::string const& name) {
  char const* data = std::getenv("TARVO_TEST_DATA");
  std::string base = data != nullptr ? std::string(data) : std::string(__FILE__);
  if (data == nullptr) base = base.substr(0, base.find_last_of('/')) + "/../data";
  return base + "/constraints_reader/" + name;
}

#endif
