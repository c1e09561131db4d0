#include "HUTEnv.h"

#include <dlfcn.h>

#include <boost/filesystem.hpp>

#include <cstdlib>

#include "HSTStrUtils.h"

namespace fs = boost::filesystem;

namespace {

// The directory of the shared object that holds this code.
fs::path libraryDirectory() {
  Dl_info info;
  if (dladdr(reinterpret_cast<void*>(&libraryDirectory), &info) == 0 || info.dli_fname == nullptr) return fs::path();
  boost::system::error_code error;
  fs::path const library = fs::canonical(fs::path(info.dli_fname), error);
  return error ? fs::path() : library.parent_path();
}

bool sameDirectory(fs::path const& a, fs::path const& b) {
  boost::system::error_code error;
  return !a.empty() && fs::equivalent(a, b, error) && !error;
}

}  // namespace

std::vector<std::string> HUTEnv::getQDSDataDirCandidates() {
  std::vector<std::string> candidates;
  for (std::string const& entry : HSTStrUtils::split(getEnv("QDS_DATA_DIR"), ':'))
    if (!entry.empty()) candidates.push_back(entry);
  fs::path const libDir = libraryDirectory();
  if (!libDir.empty()) {
    candidates.push_back((libDir / TARVO_DATA_FROM_LIBDIR).lexically_normal().string());
    if (sameDirectory(libDir, fs::path(TARVO_BUILD_LIBDIR))) candidates.push_back(TARVO_SOURCE_DATADIR);
  }
  return candidates;
}

std::string HUTEnv::getQDSDataDir(std::string const& relative) {
  std::vector<std::string> const candidates = getQDSDataDirCandidates();
  for (std::string const& dir : candidates) {
    boost::system::error_code error;
    if (fs::exists(fs::path(dir) / relative, error)) return dir;
  }
  return candidates.empty() ? std::string() : candidates.front();
}

std::string HUTEnv::getPWD() {
  boost::system::error_code error;
  fs::path const current = fs::current_path(error);
  return error ? std::string() : current.string();
}

std::string HUTEnv::getEnv(std::string const& name) {
  char const* value = std::getenv(name.c_str());
  return value == nullptr ? std::string() : std::string(value);
}
