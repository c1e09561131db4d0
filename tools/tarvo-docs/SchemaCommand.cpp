#include <boost/filesystem.hpp>

#include <fstream>

#include "Commands.h"
#include "DocumentKind.h"
#include "ExitCode.h"
#include "UsageError.h"

namespace tarvo_docs {

// schema KIND [--print]: where an editor finds the schema of a kind, or its text.
int printSchema(CommandRun& run) {
  std::string const& name = run.files().front();
  DocumentKind const* kind = findKind(name);
  if (kind == nullptr) throw UsageError("unknown document kind '" + name + "'");
  std::string const path = kind->schemaFile();
  std::ifstream in(path, std::ios_base::binary);
  if (!boost::filesystem::is_regular_file(path) || !in) {
    run.err() << "ERROR: the schema of " << name << " documents is not installed: no readable file '" << path << "'.\n";
    return kExitFailed;
  }
  if (run.options().has("--print"))
    run.out() << in.rdbuf();
  else
    run.out() << path << "\n";
  return kExitSuccess;
}

}  // namespace tarvo_docs
