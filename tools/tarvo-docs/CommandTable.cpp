#include <limits>

#include "Command.h"
#include "Commands.h"
#include "DocumentKind.h"

namespace tarvo_docs {

namespace {

std::size_t const kMany = std::numeric_limits<std::size_t>::max();

std::string kindNames() {
  std::string names;
  for (auto const& kind : documentKinds())
    names += (names.empty() ? "" : ", ") + kind->name();
  return names;
}

// Options that several commands share.
CommandOption kindOption() {
  return {"--kind", "KIND", "the document kind, instead of detecting it from the content: one of " + kindNames()};
}
CommandOption const kProgress{"--progress", "", "draw a progress bar on standard error even when it is not a terminal"};
CommandOption const kQuiet{"--quiet", "", "print only errors"};
CommandOption const kStrict{"--strict", "",
                            "warnings fail the check, and lint findings are warnings: keys the schema does not "
                            "name, duplicate keys, text that is not UTF-8, values read with loss"};
CommandOption const kDiagnosticsFormat{
    "--diagnostics-format", "FORMAT", "text (the default), or sarif: one SARIF 2.1.0 log on standard output", false,
    [](std::string const& format) {
      return format == "text" || format == "sarif"
                 ? std::string()
                 : "check: --diagnostics-format is text or sarif, not '" + format + "'";
    }};
CommandOption const kTraffic{"--traffic", "FILE",
                             "the NoC traffic specification that a NoC solution, NoC placement or compiler "
                             "solution is read against"};
CommandOption const kDevice{"--device", "FILE", "the device description (default: the built-in device)"};
CommandOption const kArch{"--arch", "FILE", "the logical architecture whose ports a compiler solution places"};
CommandOption const kPrefix{"--prefix", "TEXT", "the hierarchy prefix of a compiler solution's instance names"};
CommandOption const kInstance{"--instance", "NAME", "the KPE instance"};

std::vector<CommandOption> readingOptions(std::vector<CommandOption> more) {
  std::vector<CommandOption> options{kindOption(), kTraffic, kDevice, kArch, kPrefix};
  options.insert(options.end(), more.begin(), more.end());
  options.push_back(kProgress);
  options.push_back(kQuiet);
  return options;
}

std::vector<Command> makeTable() {
  std::vector<Command> table;

  Command check;
  check.name = "check";
  check.usage = "check [options] FILE|DIR...";
  check.help =
      "Reads each document with the library's reader and prints one line for each: OK with what it holds, or "
      "FAILED after what was found, as FILE:LINE:COLUMN: SEVERITY: TEXT [ID] on standard error, every schema "
      "violation included. A directory stands for every *.json and *.json.gz file below it; - is standard input.";
  check.options = readingOptions({kStrict, kDiagnosticsFormat});
  check.diagnoses = true;
  check.minFiles = 1;
  check.maxFiles = kMany;
  check.requirement = "needs at least one FILE";
  check.walksDirectories = true;
  check.onDocument = checkDocument;
  table.push_back(check);

  Command summary;
  summary.name = "summary";
  summary.usage = "summary [options] FILE";
  summary.help = "Reads the document and prints what its model holds.";
  summary.options = readingOptions({});
  summary.minFiles = summary.maxFiles = 1;
  summary.requirement = "needs exactly one FILE";
  summary.onDocument = summarizeDocument;
  table.push_back(summary);

  Command convert;
  convert.name = "convert";
  convert.usage = "convert [options] FILE -o OUT";
  convert.help =
      "Reads the document and writes it again through the library's writer. OUT is replaced only by a "
      "complete document: a failed conversion, or one whose writer writes nothing, leaves it as it was. "
      "- is standard input and -o - standard output; OUT ending in .gz is written compressed.";
  convert.options = readingOptions(
      {{"-o", "OUT", "where the document goes"},
       {"--hierarchy", "PREFIX", "(logical architecture) the hierarchy prefix of the written names"},
       {"--only", "REGEX",
        "(traffic specification) keep only the instances whose names contain a match, and the paths between "
        "them"},
       {"--param", "NAME=VALUE",
        "(traffic specification) a tool parameter for the writer, such as "
        "project.enableBlockModel=true; repeatable",
        true}});
  convert.minFiles = convert.maxFiles = 1;
  convert.requiredOptions = {"-o"};
  convert.requirement = "needs one FILE and -o OUT";
  convert.onDocument = convertDocument;
  table.push_back(convert);

  Command rename;
  rename.name = "rename-ports";
  rename.usage = "rename-ports [--hw] FILE -o OUT";
  rename.help = "Writes a logical architecture with its ports under the standard interface names.";
  rename.options = {
      {"-o", "OUT", "where the document goes"}, {"--hw", "", "give KPE ports hardware names"}, kProgress, kQuiet};
  rename.minFiles = rename.maxFiles = 1;
  rename.requiredOptions = {"-o"};
  rename.requirement = "needs one FILE and -o OUT";
  rename.kind = "logical-arch";
  rename.onDocument = renamePorts;
  table.push_back(rename);

  std::vector<CommandOption> const design{kArch, kTraffic, kDevice, kPrefix, kInstance};
  Command shim;
  shim.name = "shim-constraints";
  shim.usage = "shim-constraints FILE --arch A --traffic T --instance NAME [-o OUT]";
  shim.help =
      "Writes the shim constraints that pin the ports of one KPE instance to their sites in a compiler "
      "solution (to standard output without -o).";
  shim.options = design;
  shim.options.insert(shim.options.end(), {{"-o", "OUT", "where the constraints go"}, kProgress, kQuiet});
  shim.minFiles = shim.maxFiles = 1;
  shim.requiredOptions = {"--arch", "--traffic", "--instance"};
  shim.requirement = "needs one compiler solution FILE, --arch, --traffic and --instance";
  shim.kind = "compiler-solution";
  shim.onDocument = writeShimConstraints;
  table.push_back(shim);

  Command ids;
  ids.name = "interface-id";
  ids.usage = "interface-id FILE --arch A --traffic T --instance NAME [--columns START:COUNT]";
  ids.help =
      "Prints the KPE/PL interface identifiers of one KPE instance in a compiler solution; with --columns only "
      "those of its sites in the given device columns.";
  ids.options = design;
  ids.options.insert(
      ids.options.end(),
      {{"--columns", "START:COUNT", "COUNT device columns from START", false, checkColumns}, kProgress, kQuiet});
  ids.minFiles = ids.maxFiles = 1;
  ids.requiredOptions = shim.requiredOptions;
  ids.requirement = shim.requirement;
  ids.kind = "compiler-solution";
  ids.onDocument = printInterfaceIds;
  table.push_back(ids);

  Command schema;
  schema.name = "schema";
  schema.usage = "schema KIND [--print]";
  schema.help =
      "Prints the path of the installed JSON schema of a document kind, for an editor's JSON-schema support; "
      "with --print its text. KIND is one of " +
      kindNames() + ".";
  schema.options = {{"--print", "", "print the schema's text instead of its path"}};
  schema.minFiles = schema.maxFiles = 1;
  schema.requirement = "needs one KIND";
  schema.run = printSchema;
  table.push_back(schema);

  return table;
}

}  // namespace

std::vector<Command> const& commandTable() {
  static std::vector<Command> const table = makeTable();
  return table;
}

}  // namespace tarvo_docs
