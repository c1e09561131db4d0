#include "HUTFile.h"

#include <boost/filesystem.hpp>

namespace fs = boost::filesystem;

HUTFile::HUTFile(std::string const& name) : m_name(name) {}

void HUTFile::getCanonicalName(std::string& name) const {
  boost::system::error_code error;
  fs::path const absolute = fs::absolute(fs::path(m_name));
  fs::path const canonical = fs::weakly_canonical(absolute, error);
  name = (error ? absolute.lexically_normal() : canonical).string();
}

std::string HUTFile::getName() const { return fs::path(m_name).filename().string(); }

bool HUTFile::exists() const {
  boost::system::error_code error;
  return fs::exists(fs::path(m_name), error);
}

bool HUTFile::isFile() const {
  boost::system::error_code error;
  return fs::is_regular_file(fs::path(m_name), error);
}

bool HUTFile::isDirectory() const {
  boost::system::error_code error;
  return fs::is_directory(fs::path(m_name), error);
}

long long HUTFile::size() const {
  boost::system::error_code error;
  if (!fs::is_regular_file(fs::path(m_name), error)) return -1;
  boost::uintmax_t const bytes = fs::file_size(fs::path(m_name), error);
  return error ? -1 : static_cast<long long>(bytes);
}

bool HUTFile::rm() const {
  boost::system::error_code error;
  fs::remove(fs::path(m_name), error);
  return !fs::exists(fs::path(m_name), error);
}

std::string const& HUTFile::getDirSeparator() {
  static std::string const separator(1, fs::path::preferred_separator);
  return separator;
}
