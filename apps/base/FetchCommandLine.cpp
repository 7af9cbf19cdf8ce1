#include "apps/base/FetchCommandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "apps/base/ListCommand.h"
#include "common/AsciiText.h"
#include "postal/fetch/SiteClient.h"

namespace postwright::postal {
namespace {

constexpr const char* kFetchFooter =
    R"(A PLACE is a state by its name or code, a county ('travis, tx', or 48453, its FIPS number), or all.
Without --base the base is PLACE.base in ~/.local/share/postwright (or $XDG_DATA_HOME/postwright), where
'postwright fix' and the address book find it.

  tiger          address ranges of the Census Bureau, a file a county; some 3,200 files, 2 to 3 GB for all
  nad            the National Address Database, one file of some 8 GB for all; name states
  openaddresses  what cities, counties and states publish; wants an account's token; name states

Files are fetched one at a time, with pauses. What was fetched is kept in BASE.fetch until the base is
made: after any interruption the same command goes on. Only https is spoken, only with the server
itself and with what --host names, and every archive is read to its end before it is used.

Example: postwright-base fetch texas)";

constexpr const char* kUpdateFooter =
    R"(Asks whether there is something newer than what a base was fetched from, another year or changed
files, and then fetches it and makes the base again. Without BASE: every base of
~/.local/share/postwright that was fetched.)";

constexpr const char* kListFooter =
    R"(Prints, for each base that 'postwright fix' finds, its sources, when they were imported, their licence,
and the attribution that must go with them.)";

std::string CheckYear(const std::string& year) {
  constexpr size_t kDigits = 4;
  return year.size() == kDigits && AllDigits(year) ? "" : "'" + year + "' is not a year";
}

std::string CheckKind(const std::string& name) {
  if (FindFetchKind(name) != nullptr) {
    return "";
  }
  std::string known;
  for (const FetchKind& kind : FetchKinds()) {
    known += std::string(" ") + kind.name;
  }
  return "'" + name + "' publishes nothing; there are" + known;
}

void AddServerOptions(CLI::App& command, std::string& tokenFile, std::vector<std::string>& hosts,
                      ProgressLine::Form& progress) {
  command
      .add_option("--token-file", tokenFile,
                  "A file whose first line is the token of an account there")
      ->type_name("FILE");
  command.add_option("--host", hosts, "Another host that the server may redirect to")
      ->type_name("HOST")
      ->expected(1)
      ->take_all();
  using Form = ProgressLine::Form;
  CLI::Option* const quiet = command.add_flag_callback(
      "--quiet", [&progress] { progress = Form::Quiet; }, "Do not show progress");
  quiet->disable_flag_override();
  command
      .add_flag_callback(
          "--json", [&progress] { progress = Form::Json; },
          "Report progress on standard output, a JSON line five times a second")
      ->excludes(quiet)
      ->disable_flag_override();
}

}  // namespace

Command AddFetch(CLI::App& app, FetchOptions& options) {
  CLI::App* const command =
      app.add_subcommand("fetch", "Fetch the addresses of a place, and make a base of them");
  FetchRequest& request = options.request;
  command->add_option("PLACE", request.places, "What to fetch the addresses of")->required();
  command->add_option("--from", request.from, "Who publishes them; by default tiger")
      ->type_name("tiger|nad|openaddresses")
      ->check(CLI::Validator(CheckKind, ""));
  command->add_option("--year", request.year, "With tiger, that year instead of the newest")
      ->type_name("YEAR")
      ->check(CLI::Validator(CheckYear, ""));
  command->add_option("--base", options.base, "The base")->type_name("FILE");
  command
      ->add_option(
          "--mirror", request.mirror,
          "A server to use instead of the publisher's, with the same files at the same paths")
      ->type_name("URL")
      ->check(CLI::Validator(CheckOrigin, ""));
  AddServerOptions(*command, options.tokenFile, options.hosts, options.progress);
  command
      ->add_flag("--restart", options.restart,
                 "Start over, and throw away what a stopped fetch has downloaded")
      ->disable_flag_override();
  command->footer(kFetchFooter);
  return {command, [&options] { return RunFetch(options); }};
}

Command AddUpdate(CLI::App& app, UpdateOptions& options) {
  CLI::App* const command = app.add_subcommand("update", "Fetch what is newer than a base");
  command->add_option("BASE", options.bases, "The base");
  AddServerOptions(*command, options.tokenFile, options.hosts, options.progress);
  command->footer(kUpdateFooter);
  return {command, [&options] { return RunUpdate(options); }};
}

Command AddList(CLI::App& app) {
  CLI::App* const command = app.add_subcommand("list", "Tell which bases are there, and how old");
  command->footer(kListFooter);
  return {command, [] { return RunList(); }};
}

}  // namespace postwright::postal
