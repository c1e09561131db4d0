#include "Tool.h"

#include <unistd.h>
#include <CLI/CLI.hpp>

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <map>

#include "Command.h"
#include "CommandRun.h"
#include "DocumentKind.h"
#include "ExitCode.h"
#include "ReadOutcome.h"
#include "UsageError.h"

namespace tarvo_docs {

namespace {

// What CLI11 fills for one command: the FILE arguments, each option's values, and the help flag.
struct ParsedCommand {
  std::vector<std::string> files;
  std::map<std::string, std::vector<std::string>> values;
  std::map<std::string, int> flags;
  bool help = false;
};

// `text` broken into lines of at most 100 columns, each after `indent` blanks but the first.
std::string wrapped(std::string const& text, std::size_t indent) {
  std::size_t const width = 100;
  std::string result;
  std::size_t column = indent;
  std::size_t start = 0;
  while (start < text.size()) {
    std::size_t end = text.find(' ', start);
    if (end == std::string::npos) end = text.size();
    std::size_t const length = end - start;
    if (column > indent && column + 1 + length > width) {
      result += "\n" + std::string(indent, ' ');
      column = indent;
    } else if (column > indent) {
      result += ' ';
      ++column;
    }
    result.append(text, start, length);
    column += length;
    start = end + 1;
  }
  return result;
}

void printHelp(std::ostream& out) {
  out << "Usage: tarvo-docs COMMAND [options] ...\n"
         "Checks, summarises and converts the JSON documents of tarvo_readwrite.\n\n"
         "Commands:\n";
  for (Command const& command : commandTable())
    out << "  " << command.usage << "\n";
  out << "\nFILE - is standard input and -o - standard output. Options follow their command;\n"
         "-- ends them. tarvo-docs COMMAND --help describes a command and its options.\n"
         "Options of every command: --help; of the program: --help, --version.\n\n"
      << exitCodeHelp();
}

void printCommandHelp(Command const& command, std::ostream& out) {
  out << "Usage: tarvo-docs " << command.usage << "\n" << wrapped(command.help, 0) << "\n\nOptions:\n";
  for (CommandOption const& option : command.options) {
    std::string const head = option.name + (option.value.empty() ? "" : " " + option.value);
    out << "  " << head << std::string(head.size() < 24 ? 24 - head.size() : 1, ' ') << wrapped(option.help, 26)
        << "\n";
  }
  out << "  --help                  this text\n\n" << exitCodeHelp();
}

Command const* findCommand(std::string const& name) {
  for (Command const& command : commandTable())
    if (command.name == name) return &command;
  return nullptr;
}

// The text of a CLI11 error, lower-cased at its start as the program's own messages are.
std::string usageText(CLI::Error const& error) {
  std::string text = error.what();
  if (!text.empty()) text[0] = static_cast<char>(std::tolower(static_cast<unsigned char>(text[0])));
  return text;
}

// Each FILE argument; with `walk`, a directory stands for its *.json and *.json.gz files,
// sorted so that the order is the same on every run.
std::vector<std::string> inputsOf(std::vector<std::string> const& files, bool walk) {
  std::vector<std::string> inputs;
  for (std::string const& file : files) {
    std::error_code error;
    if (!walk || file == "-" || !std::filesystem::is_directory(file, error)) {
      inputs.push_back(file);
      continue;
    }
    std::vector<std::string> found;
    for (auto const& entry : std::filesystem::recursive_directory_iterator(file, error)) {
      std::string const name = entry.path().string();
      auto const endsWith = [&name](std::string const& end) {
        return name.size() >= end.size() && name.compare(name.size() - end.size(), end.size(), end) == 0;
      };
      if (entry.is_regular_file(error) && (endsWith(".json") || endsWith(".json.gz"))) found.push_back(name);
    }
    std::sort(found.begin(), found.end());
    inputs.insert(inputs.end(), found.begin(), found.end());
  }
  return inputs;
}

// Parses the arguments of `command` with CLI11; `--` ends the options.
ParsedCommand parse(Command const& command, std::vector<std::string> const& args) {
  ParsedCommand parsed;
  CLI::App app("tarvo-docs " + command.name, "tarvo-docs " + command.name);
  app.set_help_flag();
  app.add_flag("-h,--help", parsed.help);
  app.add_option("FILE", parsed.files);
  for (CommandOption const& option : command.options) {
    if (option.value.empty())
      app.add_flag(option.name, parsed.flags[option.name]);
    else
      app.add_option(option.name, parsed.values[option.name])->allow_extra_args(false);
  }
  auto const end = std::find(args.begin() + 1, args.end(), "--");
  std::vector<std::string> reversed(args.begin() + 1, end);
  std::reverse(reversed.begin(), reversed.end());
  try {
    app.parse(reversed);
  } catch (CLI::ParseError const& error) {
    throw UsageError(command.name + ": " + usageText(error));
  }
  if (end != args.end()) parsed.files.insert(parsed.files.end(), end + 1, args.end());
  return parsed;
}

// The options as the kinds and commands read them; usage errors for what the command needs.
ToolOptions checkedOptions(Command const& command, ParsedCommand const& parsed) {
  ToolOptions options;
  for (auto const& flag : parsed.flags)
    if (flag.second > 0) options.add(flag.first, "true");
  for (auto const& value : parsed.values)
    for (std::string const& text : value.second)
      options.add(value.first, text);
  bool complete = parsed.files.size() >= command.minFiles && parsed.files.size() <= command.maxFiles;
  for (std::string const& required : command.requiredOptions)
    complete = complete && options.has(required);
  if (!complete) throw UsageError(command.name + " " + command.requirement);
  for (CommandOption const& option : command.options) {
    if (!option.check || !options.has(option.name)) continue;
    std::string const problem = option.check(options.get(option.name));
    if (!problem.empty()) throw UsageError(problem, false);
  }
  if (options.has("--kind") && findKind(options.get("--kind")) == nullptr)
    throw UsageError("unknown document kind '" + options.get("--kind") + "'");
  return options;
}

int runCommand(Command const& command, std::vector<std::string> const& args, ToolStreams streams, LastDocument last) {
  ParsedCommand const parsed = parse(command, args);
  if (parsed.help) {
    printCommandHelp(command, streams.out);
    return kExitSuccess;
  }
  ToolOptions options = checkedOptions(command, parsed);
  bool const quiet = options.has("--quiet");
  bool const terminal = &streams.err == &std::cerr && isatty(STDERR_FILENO);
  bool const progress = !quiet && (options.has("--progress") || terminal);
  CommandRun run(command, parsed.files, std::move(options), streams, progress, quiet);
  if (!command.onDocument) return command.run(run);
  DocumentKind const* kind = command.kind.empty() ? nullptr : findKind(command.kind);
  bool allPassed = true;
  std::vector<std::string> const inputs = inputsOf(run.files(), command.walksDirectories);
  for (std::string const& input : inputs) {
    ReadOutcome outcome = run.read(input, kind);
    bool passed = false;
    try {
      passed = command.onDocument(run, outcome);
    } catch (UsageError const&) {
      throw;
    } catch (std::exception const&) {
      reportError(std::current_exception(), run.err());
    }
    allPassed = passed && allPassed;
    if (last == LastDocument::LeaveToExit && &input == &inputs.back()) (void)outcome.document.release();
  }
  run.finish();
  return allPassed ? kExitSuccess : kExitFailed;
}

}  // namespace

int runTool(std::vector<std::string> const& args, std::ostream& out, std::ostream& err, LastDocument last) {
  std::string const first = args.empty() ? std::string() : args.front();
  Command const* command = findCommand(first);
  try {
    if (first == "--help" || first == "-h") {
      printHelp(out);
      return kExitSuccess;
    }
    if (first == "--version") {
      out << "tarvo-docs " << TARVO_VERSION << "\n";
      return kExitSuccess;
    }
    if (args.empty()) {
      printHelp(err);
      return kExitUsage;
    }
    if (command == nullptr)
      throw UsageError(first[0] == '-' ? "unknown option " + first + "; options follow their command"
                                       : "unknown command '" + first + "'");
    return runCommand(*command, args, ToolStreams{out, err, std::cin}, last);
  } catch (UsageError const& error) {
    err << "tarvo-docs: " << error.what();
    if (error.pointsToHelp()) err << " (see tarvo-docs " << (command ? command->name + " " : "") << "--help)";
    err << "\n";
    return kExitUsage;
  } catch (std::exception const&) {
    reportError(std::current_exception(), err);
    return kExitFailed;
  }
}

}  // namespace tarvo_docs
