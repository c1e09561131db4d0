#ifndef TARVO_HUTFILEWRITESTREAM_H
#define TARVO_HUTFILEWRITESTREAM_H

#include <fstream>
#include <string>

// An output stream on a named file. A stream that could not open its file is failed.
class HUTFileWriteStream : public std::ofstream {
 public:
  enum Mode { APPEND = 1, TRUNCATE = 2 };

  HUTFileWriteStream(std::string const& file, int mode = TRUNCATE);
};

#endif
