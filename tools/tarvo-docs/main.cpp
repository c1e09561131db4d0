// tarvo-docs: checks, summarises and converts the documents of tarvo_readwrite.

#include <atomic>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <set>
#include <thread>

#include "ComMsgMgrInstance.h"
#include "DocumentKind.h"
#include "HDGUIStatus.h"
#include "HEXAlgException.h"
#include "HEXAll.h"
#include "HUTFile.h"
#include "JsonDocumentFrame.h"
#include "xp_ifstream.h"

namespace tarvo_docs {
namespace {

int const kExitFailed = 1;
int const kExitUsage = 2;

struct CommandLine {
  std::string command;
  std::vector<std::string> args;
  ToolOptions options;
  bool help = false;
  bool version = false;
};

class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

std::set<std::string> kindOptions(bool values) {
  std::set<std::string> names;
  for (auto const& kind : documentKinds())
    for (std::string const& name : values ? kind->valueOptions() : kind->flagOptions()) names.insert(name);
  return names;
}

CommandLine parseCommandLine(int argc, char** argv) {
  std::set<std::string> valueOptions = kindOptions(true);
  valueOptions.insert({"--kind", "-o"});
  std::set<std::string> flagOptions = kindOptions(false);
  flagOptions.insert("--progress");
  CommandLine line;
  for (int i = 1; i < argc; ++i) {
    std::string arg = argv[i];
    if (arg == "--help" || arg == "-h") {
      line.help = true;
    } else if (arg == "--version") {
      line.version = true;
    } else if (arg.size() > 1 && arg[0] == '-') {
      std::string value;
      std::string::size_type const equals = arg.find('=');
      bool const inlineValue = equals != std::string::npos && arg.compare(0, 2, "--") == 0;
      if (inlineValue) {
        value = arg.substr(equals + 1);
        arg = arg.substr(0, equals);
      }
      if (flagOptions.count(arg) && !inlineValue) {
        line.options.add(arg, "true");
      } else if (valueOptions.count(arg)) {
        if (!inlineValue) {
          if (i + 1 >= argc) throw UsageError("option " + arg + " needs a value");
          value = argv[++i];
        }
        line.options.add(arg, value);
      } else {
        throw UsageError("unknown option " + arg);
      }
    } else if (line.command.empty()) {
      line.command = arg;
    } else {
      line.args.push_back(arg);
    }
  }
  return line;
}

void printHelp(std::ostream& out) {
  out << "Usage: tarvo-docs [options] COMMAND ...\n"
         "Checks, summarises and converts the JSON documents of tarvo_readwrite.\n\n"
         "Commands:\n"
         "  check FILE...           read each file, print the library's messages and one summary\n"
         "                          line per file; exit 1 if any file failed\n"
         "  summary FILE            print what the model of the document holds\n"
         "  convert FILE -o OUT     read and write back through the library's writer; a failed\n"
         "                          conversion leaves an existing OUT untouched\n";
  for (auto const& kind : documentKinds())
    for (ExtraCommand const& extra : kind->extraCommands()) out << "  " << extra.usage << "\n";
  out << "\nOptions:\n"
         "  --kind KIND             the document kind, instead of detecting it from the content;\n"
         "                          one of:";
  for (auto const& kind : documentKinds()) out << " " << kind->name();
  out << "\n"
         "  --progress              show a progress bar on standard error while a file is read\n"
         "  --help, --version\n";
  std::set<std::string> const values = kindOptions(true);
  std::set<std::string> const flags = kindOptions(false);
  if (!values.empty() || !flags.empty()) {
    out << "  document options:";
    for (std::string const& name : values) out << " " << name << " VALUE";
    for (std::string const& name : flags) out << " " << name;
    out << "\n";
  }
}

DocumentKind const& kindByName(std::string const& name) {
  for (auto const& kind : documentKinds())
    if (kind->name() == name) return *kind;
  throw UsageError("unknown document kind '" + name + "'");
}

// Detects the kind from the document's top-level keys. A file that can't be read or parsed
// fails here with the library's own report.
DocumentKind const& detectKind(std::string const& file) {
  JsonDocumentFrame::Document doc;
  JsonDocumentFrame::readFile(file, JsonDocumentFrame::Opener::AutoDetect,
                              [&doc](std::istream& in, std::string const& name) {
                                JsonDocumentFrame::parse(in, name, doc);
                                return true;
                              });
  for (auto const& kind : documentKinds())
    if (kind->recognises(doc)) return *kind;
  throw std::runtime_error("cannot tell which kind of document '" + file + "' is; name it with --kind");
}

DocumentKind const& kindOf(std::string const& file, ToolOptions const& options) {
  return options.has("--kind") ? kindByName(options.get("--kind")) : detectKind(file);
}

// Draws a progress bar on standard error from a second thread that polls the status record
// while the library works.
class ProgressBar {
 public:
  ProgressBar(HDGUIStatus const& status, bool enabled) : m_status(status) {
    if (enabled) m_thread = std::thread([this] { run(); });
  }
  ~ProgressBar() {
    if (!m_thread.joinable()) return;
    m_done = true;
    m_thread.join();
    draw();
    std::cerr << "\n";
  }

 private:
  void run() {
    while (!m_done) {
      draw();
      std::this_thread::sleep_for(std::chrono::milliseconds(100));
    }
  }
  void draw() const {
    int const width = 30;
    double const percent = m_status.getPercent();
    int const filled = static_cast<int>(percent * width / 100.0 + 0.5);
    std::string bar(static_cast<std::size_t>(std::max(0, std::min(width, filled))), '#');
    bar.resize(width, ' ');
    std::cerr << "\r[" << bar << "] " << static_cast<int>(percent) << "% " << m_status.getMessage() << std::flush;
  }

  HDGUIStatus const& m_status;
  std::atomic<bool> m_done{false};
  std::thread m_thread;
};

// Counts what the library reports while it lives.
class SeverityCounter {
 public:
  SeverityCounter() {
    m_sink = ComMsgMgr::addSink([this](ComMsgMgrInstance const& message) {
      if (message.getMask() == ComMsgMgr::MSG_ERROR) ++errors;
      if (message.getMask() == ComMsgMgr::MSG_WARNING || message.getMask() == ComMsgMgr::MSG_CRITICAL_WARNING)
        ++warnings;
    });
  }
  ~SeverityCounter() { ComMsgMgr::removeSink(m_sink); }

  int errors = 0;
  int warnings = 0;

 private:
  int m_sink;
};

struct ReadResult {
  DocumentKind const* kind = nullptr;
  std::unique_ptr<LoadedDocument> document;
  int errors = 0;
  int warnings = 0;
  bool ok() const { return document != nullptr && errors == 0; }
};

void reportFailure(std::string const& text) { std::cerr << text << "\n"; }

ReadResult readDocument(std::string const& file, ToolOptions const& options) {
  ReadResult result;
  SeverityCounter counter;
  try {
    result.kind = &kindOf(file, options);
    HDGUIStatus status;
    ProgressBar progress(status, options.has("--progress"));
    result.document = result.kind->read(file, options, status);
  } catch (HEXAll const& error) {
    reportFailure(error.what());
    ++counter.errors;
  } catch (UsageError const&) {
    throw;
  } catch (std::exception const& error) {
    reportFailure(std::string("ERROR: ") + error.what());
    ++counter.errors;
  }
  result.errors = counter.errors;
  result.warnings = counter.warnings;
  return result;
}

std::string counts(ReadResult const& result) {
  std::string text;
  if (result.errors) text += ", " + std::to_string(result.errors) + (result.errors == 1 ? " error" : " errors");
  if (result.warnings)
    text += ", " + std::to_string(result.warnings) + (result.warnings == 1 ? " warning" : " warnings");
  return text;
}

int runCheck(CommandLine const& line) {
  if (line.args.empty()) throw UsageError("check needs at least one FILE");
  bool allOk = true;
  for (std::string const& file : line.args) {
    ReadResult const result = readDocument(file, line.options);
    std::string const kind = result.kind ? result.kind->name() : "unknown kind";
    if (result.ok())
      std::cout << file << ": OK (" << kind << ", " << result.document->brief() << counts(result) << ")\n";
    else
      std::cout << file << ": FAILED (" << kind << counts(result) << ")\n";
    allOk = allOk && result.ok();
  }
  return allOk ? 0 : kExitFailed;
}

int runSummary(CommandLine const& line) {
  if (line.args.size() != 1) throw UsageError("summary needs exactly one FILE");
  ReadResult const result = readDocument(line.args.front(), line.options);
  if (result.document) result.document->summarize(std::cout);
  return result.ok() ? 0 : kExitFailed;
}

// Writes next to OUT first and renames on success, so that a failed conversion leaves an
// existing OUT as it was.
int runConvert(CommandLine const& line) {
  if (line.args.size() != 1 || !line.options.has("-o")) throw UsageError("convert needs one FILE and -o OUT");
  std::string const output = line.options.get("-o");
  ReadResult const result = readDocument(line.args.front(), line.options);
  if (!result.ok()) return kExitFailed;
  std::string const temporary = output + ".tarvo-docs-tmp";
  bool written = false;
  SeverityCounter counter;
  try {
    std::ofstream out(temporary, std::ios_base::binary | std::ios_base::trunc);
    if (!out) throw std::runtime_error("cannot open '" + temporary + "' for writing");
    written = result.document->write(out, line.options);
    out.close();
    written = written && !out.fail();
  } catch (HEXAll const& error) {
    reportFailure(error.what());
  } catch (std::exception const& error) {
    reportFailure(std::string("ERROR: ") + error.what());
  }
  if (written && counter.errors == 0 && std::rename(temporary.c_str(), output.c_str()) == 0) return 0;
  HUTFile(temporary).rm();
  reportFailure("ERROR: conversion of '" + line.args.front() + "' failed; '" + output + "' is unchanged.");
  return kExitFailed;
}

int run(CommandLine const& line) {
  if (line.command == "check") return runCheck(line);
  if (line.command == "summary") return runSummary(line);
  if (line.command == "convert") return runConvert(line);
  for (auto const& kind : documentKinds())
    for (ExtraCommand const& extra : kind->extraCommands())
      if (extra.name == line.command) return extra.run(line.args, line.options);
  throw UsageError("unknown command '" + line.command + "'");
}

}  // namespace
}  // namespace tarvo_docs

int main(int argc, char** argv) {
  using namespace tarvo_docs;
  try {
    CommandLine const line = parseCommandLine(argc, argv);
    if (line.help) {
      printHelp(std::cout);
      return 0;
    }
    if (line.version) {
      std::cout << "tarvo-docs " << TARVO_VERSION << "\n";
      return 0;
    }
    if (line.command.empty()) {
      printHelp(std::cerr);
      return kExitUsage;
    }
    return run(line);
  } catch (UsageError const& error) {
    std::cerr << "tarvo-docs: " << error.what() << " (see tarvo-docs --help)\n";
    return kExitUsage;
  }
}
