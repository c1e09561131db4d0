#ifndef TARVO_HUTENV_H
#define TARVO_HUTENV_H

#include <string>
#include <vector>

// The process environment as the tool sees it.
class HUTEnv {
 public:
  // The first data directory that holds `relative`: each entry of QDS_DATA_DIR
  // (colon-separated), then the installed data directory, then, for a library run from its
  // build tree, the source tree's data/. When none holds it, the first candidate.
  static std::string getQDSDataDir(std::string const& relative);
  // The candidates of getQDSDataDir, in their order.
  static std::vector<std::string> getQDSDataDirCandidates();
  // The current working directory.
  static std::string getPWD();
  // The value of an environment variable, empty when unset.
  static std::string getEnv(std::string const& name);
};

#endif
