#include "HUTFileUtils.h"

#include <boost/filesystem.hpp>

#include <fstream>

#include "HUTFile.h"

namespace fs = boost::filesystem;

std::string HUTFileUtils::checkFileForReading(std::string const& file, std::vector<std::string>& problems) {
  HUTFile const hutFile(file);
  std::string canonical;
  hutFile.getCanonicalName(canonical);
  if (!hutFile.exists()) {
    problems.push_back("File '" + canonical + "' does not exist.");
    return std::string();
  }
  if (!hutFile.isFile()) {
    problems.push_back("'" + canonical + "' is not a regular file.");
    return std::string();
  }
  std::ifstream probe(file, std::ios_base::in | std::ios_base::binary);
  if (!probe) {
    problems.push_back("File '" + canonical + "' cannot be opened for reading.");
    return std::string();
  }
  return canonical;
}

bool HUTFileUtils::makeRelativeToPath(std::string const& path, std::string const& base, std::string& result) {
  fs::path const target(path);
  fs::path const from(base);
  if (!target.is_absolute() || !from.is_absolute()) return false;
  fs::path const relative = target.lexically_normal().lexically_relative(from.lexically_normal());
  if (relative.empty()) return false;
  result = relative.string();
  return true;
}
