#include "ToolRun.h"

#include <sys/wait.h>

#include <cstdio>
#include <cstdlib>

#include "TestSupport.h"

namespace tarvo_test {

ToolRun runTarvoDocs(std::string const& tool, std::string const& arguments) {
  TempDir dir;
  std::string const command = "'" + tool + "' " + arguments + " >'" + dir.file("out") + "' 2>'" + dir.file("err") + "'";
  int const status = std::system(command.c_str());
  int const code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  return ToolRun{code, readFile(dir.file("out")), readFile(dir.file("err"))};
}

}  // namespace tarvo_test
