#ifndef TARVO_HUTFILE_H
#define TARVO_HUTFILE_H

#include <string>

// A file name and plain tests on the file system under it.
class HUTFile {
 public:
  explicit HUTFile(std::string const& name);

  std::string const& getPath() const { return m_name; }
  // Rewrites `name` to the canonical form of this file's name: absolute, with "." and ".."
  // steps and symbolic links of the existing part resolved.
  void getCanonicalName(std::string& name) const;
  // The last path step ("b.json" of "a/b.json").
  std::string getName() const;

  bool exists() const;
  bool isFile() const;
  bool isDirectory() const;
  // Size in bytes; -1 when the file does not exist or is no regular file.
  long long size() const;
  // Removes the file; true when it is gone afterwards.
  bool rm() const;

  static std::string const& getDirSeparator();

 private:
  std::string m_name;
};

#endif
