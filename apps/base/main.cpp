// The command `postwright-base`: reads the command line and runs the subcommand that it names.

#include <CLI/CLI.hpp>
#include <algorithm>
#include <csignal>
#include <exception>
#include <iostream>

#include "apps/CharacterLocale.h"
#include "apps/TerminalText.h"
#include "apps/base/BaseExit.h"
#include "apps/base/FetchCommandLine.h"
#include "apps/base/ImportCommand.h"
#include "apps/base/InfoCommand.h"
#include "apps/base/ListCommand.h"
#include "apps/base/LookupCommand.h"

namespace postwright::postal {

namespace {

constexpr const char* kName = "postwright-base";

constexpr const char* kFooter =
    R"(A base is one file, which postwright-verifyd takes with --base. 'postwright-base import --help' and
the others say more.

Exit status: 0 done; 1 of lookup: the address is not confirmed; 2 wrong usage, or a file that cannot
be read, written, fetched or used; 130 a signal stopped a fetch or an import, which the same command
goes on with.

Example: postwright-base fetch texas)";

constexpr const char* kImportFooter =
    R"(Adds the files to BASE as one source, and makes BASE if it does not exist. Rows from an earlier
    import of the same --source are replaced. A service that has BASE open goes on with the old one
    until SIGHUP makes it read its files again.

A FILE is a county's address ranges from the Census Bureau's TIGER/Line
(tl_YEAR_COUNTY_addrfeat.zip, or the .dbf in it), GeoJSON with one feature a line as published by
OpenAddresses, or a CSV file whose first line names the columns: that of OpenAddresses, that of the
National Address Database, one whose columns are named like the fields below, or any other with
--map. It may be gzipped or in a ZIP archive, and a folder of such files may be given.

Fields: number street unit city state zip zip4 urbanization, and for ranges of numbers low high
parity (E, O or B). A field may be made of several columns: street=PREDIR+NAME+TYPE.

Rows without a house number, a street or a ZIP code are left out; the first twenty are named, and all
are counted. SIGINT stops the import between two rows; the same command goes on where it stopped.
BASE is not touched before everything is read and sorted, and not at all if the files have no usable
row. Sorting takes room in SQLITE_TMPDIR or /var/tmp.

Example: postwright-base import my.base houses.csv --source 'County GIS' --licence 'public domain' \
           --map number=HOUSENO,street=PREDIR+NAME+TYPE,zip=ZIP,city=POSTCITY)";

constexpr const char* kLookupFooter =
    R"(Prints the steps of the decision, then the service's answer. Give '' for an unknown part.

Exit status: 0 confirmed, with its unit or without; 1 not confirmed or turned down; 2 as above.

Example: postwright-base lookup my.base '12 n main street' Austin TX '')";

std::string CheckMap(const std::string& map) {
  try {
    ColumnMap::Parse(map);
    return "";
  } catch (const std::invalid_argument& error) {
    return error.what();
  }
}

std::string CheckName(const std::string& name) {
  return name.empty() ? "a name is missing" : "";
}

Command AddImport(CLI::App& app, ImportOptions& options) {
  CLI::App* const command = app.add_subcommand("import", "Make a base, or add files to one");
  command->add_option("BASE", options.base, "The base")
      ->required()
      ->check(CLI::Validator(CheckName, ""));
  command->add_option("FILE", options.files, "What to add")->required();
  command
      ->add_option("--source", options.source,
                   "The name of the files as a whole; a later import of it replaces this one")
      ->required()
      ->type_name("NAME")
      ->check(CLI::Validator(CheckName, ""));
  command->add_option("--licence", options.licence, "The licence of the files, kept in the base")
      ->type_name("TEXT");
  command
      ->add_option("--attribution", options.attribution,
                   "The attribution that must go with the files, kept in the base")
      ->type_name("TEXT");
  command->add_option("--map", options.map, "Which columns make up which field")
      ->type_name("FIELD=COLUMN,...")
      ->check(CLI::Validator(CheckMap, ""));
  command
      ->add_flag(
          "--partial", options.partial,
          "The files do not have all streets of their ZIP codes: a street they do not name is "
          "not turned down")
      ->disable_flag_override();
  command
      ->add_flag("--restart", options.restart,
                 "Start over, and throw away what a stopped import has read")
      ->disable_flag_override();
  command->add_flag("--quiet", options.quiet, "Do not show progress")->disable_flag_override();
  command->footer(kImportFooter);
  return {command, [&options] { return RunImport(options); }};
}

Command AddInfo(CLI::App& app, std::string& base) {
  CLI::App* const command = app.add_subcommand("info", "Tell what a base holds, and its sources");
  command->add_option("BASE", base, "The base")->required();
  return {command, [&base] { return RunInfo(base); }};
}

Command AddLookup(CLI::App& app, LookupOptions& options) {
  CLI::App* const command =
      app.add_subcommand("lookup", "Tell what becomes of an address, and why");
  command->add_option("BASE", options.base, "The base")->required();
  command->add_option("STREET", options.street, "The delivery line")->required();
  command->add_option("CITY", options.city, "The city")->required();
  command->add_option("STATE", options.state, "The state, by its name or code")->required();
  command->add_option("ZIP", options.zip, "The ZIP code")->required();
  command->add_option("--unit", options.unit, "The line above, such as an apartment")
      ->type_name("TEXT");
  command
      ->add_option("--zips", options.zips,
                   "A list of further ZIP codes, as for postwright-verifyd --base")
      ->type_name("FILE");
  command->footer(kLookupFooter);
  return {command, [&options] { return RunLookup(options); }};
}

int RunCommandLine(int argc, char** argv) {
  CLI::App app("Fetches and makes address bases for the programs and the local Verify service.",
               kName);
  app.set_version_flag("--version", std::string(kName) + " " POSTWRIGHT_VERSION,
                       "Print the version and exit");
  app.set_help_flag("-h,--help", "Print this help and exit");
  app.footer(kFooter);
  app.require_subcommand(1);
  ImportOptions import;
  std::string base;
  LookupOptions lookup;
  FetchOptions fetch;
  UpdateOptions update;
  const Command commands[] = {AddFetch(app, fetch), AddUpdate(app, update),
                              AddList(app),         AddImport(app, import),
                              AddInfo(app, base),   AddLookup(app, lookup)};
  try {
    app.parse(argc, argv);
  } catch (const CLI::Success& question) {
    return app.exit(question);
  } catch (const CLI::ParseError& error) {
    std::cerr << kName << ": " << error.what() << "\n'" << kName << " --help' says more.\n";
    return kExitFailed;
  }
  const auto* const asked = std::ranges::find_if(
      commands, [](const Command& command) { return command.parser->parsed(); });
  return asked->run();
}

}  // namespace

}  // namespace postwright::postal

int main(int argc, char** argv) {
  std::signal(SIGXFSZ, SIG_IGN);  // a file beyond the limit is an error like a full disk
  const postwright::TerminalStreams streams;
  try {
    postwright::SetCharacterLocale();
    return postwright::postal::RunCommandLine(argc, argv);
  } catch (const std::exception& error) {
    std::cerr << "postwright-base: " << error.what() << '\n';
    return postwright::postal::kExitFailed;
  }
}
