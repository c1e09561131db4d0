#ifndef TARVO_HUTFILEUTILS_H
#define TARVO_HUTFILEUTILS_H

#include <string>
#include <vector>

class HUTFileUtils {
 public:
  // Checks that `file` exists, is a regular file and can be opened for reading. Returns its
  // canonical name when it can be read; otherwise returns an empty string and appends the
  // reason to `problems`.
  static std::string checkFileForReading(std::string const& file, std::vector<std::string>& problems);
  // Makes the absolute `path` relative to the directory `base`. False, and `result`
  // untouched, when `path` or `base` is not absolute.
  static bool makeRelativeToPath(std::string const& path, std::string const& base, std::string& result);
};

#endif
