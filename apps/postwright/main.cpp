// The command `postwright`: reads the command line and runs the subcommand that it names.

#include <CLI/CLI.hpp>
#include <csignal>
#include <exception>
#include <functional>
#include <iostream>

#include "apps/CharacterLocale.h"
#include "apps/ServerOption.h"
#include "apps/StandardStreams.h"
#include "apps/TerminalText.h"
#include "apps/TimeOption.h"
#include "apps/postwright/FixCommand.h"
#include "apps/postwright/ParseCommand.h"
#include "apps/postwright/stream/Failure.h"
#include "apps/postwright/stream/LineFilter.h"
#include "apps/postwright/table/LabelColumns.h"

namespace postwright {

namespace {

constexpr const char* kVersion = "postwright " POSTWRIGHT_VERSION;

constexpr const char* kUsage = "postwright parse|fix [OPTIONS] [FILE]";

constexpr const char* kParseUsage =
    "postwright parse [FILE]\n"
    "       postwright parse --jsonl [--jobs N] [--output FILE | --resume FILE] [FILE]\n"
    "       postwright parse [--csv] [--columns LIST] [--jobs N] [--output FILE] [--resume FILE]\n"
    "                        [TABLE]";
constexpr const char* kParseFooter =
    R"(Without --jsonl the fields that hold something are printed, one a line.

With --jsonl each line of the input is a JSON string, the text of one label, or an object with that
string as "address" and any "id", or with the label in parts (name, street, unit, city, state, zip).
Each line of the output is an object with the keys prefix, number, predirectional, street,
street_suffix, postdirectional, secondary_unit, secondary_number, street_line, city, state, zip and
suffix, after the id where one was given. A label that holds no address has thirteen empty strings;
so has a line that is not a label or is longer than 16 MiB, which is reported.

With --jobs as many worker processes read labels at once, a few hundred each; the records come in
the order of the lines all the same. The labels of one that dies are handed out again. --resume FILE
adds the records to FILE and goes on after those that an interrupted run of the same input left
there; a half last line is dropped.

A table, CSV or TSV in any usual encoding, is written with these thirteen as columns added. --resume
keeps the records of the rows in a file of their own, beside --output.

Exit status: 0 done; 1 no address found, or a line was not a label or row; 2 wrong usage, or
input or output that cannot be read or written; 141 the reader of the output went away.

Example: printf 'Jane Doe\n12 n main st apt 4\naustin tx 78701\n' | postwright parse)";

constexpr const char* kFixUsage =
    "postwright fix [--case upper|lower|mixed] [--mixed-case WORDS]\n"
    "                      [--punctuation keep|postal|remove] [--names as-typed|same-case]\n"
    "                      [--explain] [--accept-doubtful] [--whole-label]\n"
    "                      [--server HOST[:PORT]] [--timeout TIME] [FILE]\n"
    "       postwright fix --jsonl [--jobs N] [--output FILE | --resume FILE [--retry-failed]]\n"
    "                      [--give-up-after TIME] [--quiet] ...\n"
    "       postwright fix [--csv] [--columns LIST] [--jobs N] [--output FILE]\n"
    "                      [--resume FILE [--retry-failed]] [--give-up-after TIME] [--quiet]\n"
    "                      ... [TABLE]";
constexpr const char* kFixFooter =
    R"(Without --jsonl the corrected text is printed, or why there is none. It is in upper case and
with the punctuation of the postal service's standard alone unless asked for otherwise: the hyphens
of numbers and ZIP+4, the slash of a fraction, the # of a unit. Mixed case has a dictionary of its
own for states, directions, names like McDonald and so on; the words of --mixed-case are spelt as
given there.

The lines around the address stay as they were typed, unless with --whole-label or --names. Where no
line is clearly the address, the whole text is asked about, and names keep their form all the same.
Rural routes, boxes with letters, General Delivery, blocks and kilometres of Puerto Rico and
addresses of other countries are not asked about and stay as they are, which standard error says.

A correction that the rules of postal addresses and the service's footnotes do not account for is
doubtful: a number that moved, a word lost, another street without a reason. So is a number that
is none of those the service knows on its street. Then the text is printed as it was typed, the
reason goes to standard error, and the status is 3. --explain names the rule of each change, and
how far the address was confirmed; --accept-doubtful takes what is doubtful.

Where the service finds several addresses equally good, knows the street and not the number, or the
building and not the unit, --candidates lists what could have been meant, at most 50: streets with
ranges of house numbers, buildings with ranges of units. On a terminal they are offered by number
without being asked for, and so is a number in the range; the address that was chosen is asked about
before it is printed.

With --jsonl each line of the input is a JSON string, the text of one label, or an object with that
string as "address" and any "id", or with the label in parts (name, street, unit, city, state, zip),
which then come back corrected as "parts". Each line of the output is an object with the keys
address (the text as given), fixed (the text to use), result (why a fix failed), confirmation
(confirmed, unit-missing, unit-not-known, number-not-known, form-only where nobody has checked the
street, or empty), reason (a code: why a label was left alone, why nothing was read in it, why it
was turned down or not answered, or what is doubtful) and status (0 unchanged, 1 fixed, 2 for a
person to decide, 3 turned down, 4 not answered), after the id where one was given. Records come in
the order of the lines, each as soon as it and all before it are known. A line that is not a label
or is longer than 16 MiB is reported, and has status 3. A label over which a worker process of
--jobs died has status 4.

A doubtful correction has status 2, an empty fixed, and proposed (the text as corrected). With
--explain each record has confirmation_text and reason_text, the two in words, source (base,
zip-list, upstream or cache: whose word it is, where the service tells) and source_text, the same in
words, and changes, a list of objects with rule, text, doubt, typed and corrected, their lines and
offsets, and reason. With --candidates each has candidates, a list of objects with address (ranges
in parentheses) and, for a range, number_low, number_high and number_parity or unit_low, unit_high
and unit_parity.

A run with --output leaves nothing behind when it is interrupted. One that writes to standard output
or with --resume leaves its records, and --resume FILE goes on after them: the records of FILE must
be those of the same input, a half last line is dropped, and new records are added to FILE itself,
which need not be there yet. What was not answered is asked about again, with --retry-failed also
what was turned down; the new records take the places of the old ones.

A table, CSV or TSV in any usual encoding, is written as it was, with the addresses corrected in
their own columns, and columns added: postwright_status (unchanged, fixed, to-decide, turned-down,
not-answered), _confirmation, _reason, _zip4, _proposed and, with --explain, _reason_text,
_source_text and _changes, with --candidates _candidates. It is told from one label by the names in
its header; --csv says it is one, and --columns names the columns of the label. A ZIP code of five
digits stays one. A row that cannot be read stays and is reported. --resume keeps the records of the
rows in a file of their own, beside --output.

When a service leaves three labels in a row unanswered, the run waits for it: it asks again after a
second, then after growing pauses of at most a minute, and goes on by itself. If there is no answer
for the time of --give-up-after, the run ends with status 75; what was written is whole, and a run
with --output leaves its records in FILE.unfinished-..., which --resume goes on with. A wait that
the service asks for (Retry-After, a gateway whose budget is spent) does not count.

On a terminal that can write over a line, standard error shows how far the run has come, unless with
--quiet.

Exit status: 0 done, for many labels even where fixes failed; 1 the fix failed, or a line was not a
label or row; 2 wrong usage, or input or output that cannot be read or written; 3 the correction is
doubtful and was not taken; 75 the service gave no answer for too long; 141 the reader of the output
went away.

The variable POSTWRIGHT_SERVER of the environment names the service where --server does not. Where
neither does, no service is asked: the command answers by itself, from each NAME.base in
$XDG_DATA_HOME/postwright (~/.local/share/postwright unless set) and in /var/lib/postwright, which
'postwright-base import' makes, and from the ZIP codes that come with it. Of several bases the first
that has streets of the ZIP code answers. Without one, streets are not checked. On a terminal, and
with --explain, standard error says in front which it is.

Example: postwright fix --jsonl --jobs 8 --resume fixed.jsonl labels.jsonl)";

std::string CheckFileName(const std::string& name) {
  return name.empty() ? "a file's name is missing" : "";
}

// The options that both subcommands have.
template <typename Options>
void AddStreams(CLI::App* parser, Options& options, const std::string& jobs) {
  parser->set_version_flag("--version", kVersion, "Print the version and exit");
  parser->set_help_flag("-h,--help", "Print this help and exit");
  CLI::Option* const lines =
      parser->add_flag("--jsonl", options.jsonl, "Read a label a line, write a record a line")
          ->disable_flag_override();
  parser
      ->add_flag("--csv", options.csv,
                 "Read a table, CSV or TSV, and write it with columns added; not needed if "
                 "the header names the columns")
      ->disable_flag_override()
      ->excludes(lines);
  parser
      ->add_option("--columns", options.columns,
                   "The columns of a table that make the label, by title or number: "
                   "\"name=Donor,street=Address 1,unit=3,city=City,state=ST,zip=ZIP\"")
      ->type_name("LIST")
      ->excludes(lines)
      ->check(CLI::Validator(CheckColumns, ""));
  parser
      ->add_option("--output", options.output,
                   "Write the records or the table to this file, which appears whole or not at "
                   "all; - is standard output")
      ->type_name("FILE")
      ->check(CLI::Validator(CheckFileName, ""));
  parser
      ->add_option("--resume", options.resume,
                   "Go on with the file of records that an interrupted run left")
      ->type_name("FILE")
      ->check(CLI::Validator(CheckFileName, ""));
  parser->add_option("--jobs", options.jobs, jobs + " (default 1)")
      ->type_name("N")
      ->check(CLI::Validator(CheckJobs, ""));
  parser->add_option("FILE", options.file, "What to read; without it, or for -, standard input")
      ->type_name("");
}

struct Command {
  CLI::App* parser;
  const char* usage;
  std::function<ExitStatus()> run;
};

Command AddParse(CLI::App& app, ParseOptions& options) {
  CLI::App* const parser =
      app.add_subcommand("parse", "Split a label into the parts of its address");
  AddStreams(parser, options, "How many processes read labels at once");
  parser->footer(kParseFooter);
  return {parser, kParseUsage, [&options] { return RunParse(options); }};
}

void AddFixSettings(CLI::App* parser, FixOptions& options) {
  parser
      ->add_option("--case", options.letters,
                   "The case of the corrected text: upper (the default), lower or mixed")
      ->type_name("CASE")
      ->check(CLI::Validator(CheckLetters, ""));
  CLI::Option* const punctuation =
      parser
          ->add_option("--punctuation", options.punctuation,
                       "The punctuation of the corrected address: keep all, postal (the default), "
                       "or remove all but the hyphen of ZIP+4")
          ->type_name("SIGNS")
          ->check(CLI::Validator(CheckPunctuation, ""));
  parser
      ->add_flag("--keep-punctuation", options.keepPunctuation,
                 "Another name for --punctuation keep")
      ->disable_flag_override()
      ->excludes(punctuation);
  parser
      ->add_option("--names", options.names,
                   "The lines around the address: as-typed (the default), or in the same-case")
      ->type_name("FORM")
      ->check(CLI::Validator(CheckNames, ""));
  parser
      ->add_option("--mixed-case", options.mixedCase,
                   "How to spell words in mixed case: \"DeWitt;MacArthur\"")
      ->type_name("WORDS")
      ->check(CLI::Validator(CheckSpellings, ""));
  parser
      ->add_flag("--whole-label", options.wholeLabel,
                 "Ask about the whole text, and correct the lines around the address too")
      ->disable_flag_override();
  parser
      ->add_flag(
          "--explain", options.explain,
          "Say why, how far it was confirmed, and by whom: on standard error, or in the records")
      ->disable_flag_override();
  parser
      ->add_flag("--candidates", options.candidates,
                 "Say what could have been meant: on standard error, or in the records")
      ->disable_flag_override();
  parser
      ->add_flag("--accept-doubtful", options.acceptDoubtful,
                 "Also make corrections that a person should look at")
      ->disable_flag_override();
  AddServerOption(*parser, options.server, "none, the command answers by itself,");
  AddTimeOption(*parser, "--timeout", options.timeout,
                "How long a request to it may last, such as 20s (default 2min)");
}

void AddFixStream(CLI::App* parser, FixOptions& options) {
  parser
      ->add_flag("--retry-failed", options.retryFailed,
                 "With --resume: also ask again about what was turned down")
      ->needs("--resume")
      ->disable_flag_override();
  AddTimeOption(*parser, "--give-up-after", options.giveUpAfter,
                "How long to wait for a service that gives no answer at all (default 10min)");
  parser->add_flag("--quiet", options.quiet, "Show no progress on a terminal")
      ->disable_flag_override();
}

Command AddFix(CLI::App& app, FixOptions& options) {
  CLI::App* const parser =
      app.add_subcommand("fix", "Correct the address in a label with a Verify service");
  AddStreams(parser, options, "How many fixes are under way at once");
  AddFixSettings(parser, options);
  AddFixStream(parser, options);
  parser->footer(kFixFooter);
  return {parser, kFixUsage, [&options] { return RunFix(options); }};
}

ExitStatus ExplainUsage(const std::string& command, const std::string& problem,
                        const std::string& usage) {
  std::cerr << command << ": " << problem << "\nUsage: " << usage << "\n'" << command
            << " --help' says more.\n";
  return kExitFailed;
}

// Help and version, as asked for, on standard output.
ExitStatus PrintAnswer(const CLI::App& app, const CLI::Success& question) {
  app.exit(question);
  std::cout.flush();
  if (!std::cout) {
    throw Failure("cannot write standard output");
  }
  return kExitDone;
}

ExitStatus RunCommandLine(int argc, char** argv) {
  CLI::App app("Finds, splits and corrects the US postal address in a label's text.", "postwright");
  app.set_version_flag("--version", kVersion, "Print the version and exit");
  app.set_help_flag("-h,--help", "Print this help and exit");
  app.footer("'postwright COMMAND --help' says more of each.");
  ParseOptions parseOptions;
  FixOptions fixOptions;
  const Command commands[] = {AddParse(app, parseOptions), AddFix(app, fixOptions)};
  app.require_subcommand(0, 1);
  app.allow_extras();  // so that what is not a command is named in our own words
  try {
    app.parse(argc, argv);
  } catch (const CLI::Success& question) {
    return PrintAnswer(app, question);
  } catch (const CLI::ParseError& error) {
    for (const Command& command : commands) {
      if (command.parser->parsed()) {
        return ExplainUsage("postwright " + command.parser->get_name(), error.what(),
                            command.usage);
      }
    }
    return ExplainUsage("postwright", error.what(), kUsage);
  }
  if (app.remaining_size() > 0) {
    return ExplainUsage("postwright", "'" + app.remaining().front() + "' is not a command", kUsage);
  }
  for (const Command& command : commands) {
    if (command.parser->parsed()) {
      return command.run();
    }
  }
  return ExplainUsage("postwright", "a command is missing", kUsage);
}

}  // namespace

}  // namespace postwright

int main(int argc, char** argv) {
  using namespace postwright;
  OccupyStandardStreams();
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);  // a file beyond the limit is an error like a full disk
  const TerminalStreams streams;
  try {
    SetCharacterLocale();
    return RunCommandLine(argc, argv);
  } catch (const ClosedPipe&) {
    return kExitClosedPipe;
  } catch (const Failure& failure) {
    std::cerr << "postwright: " << failure.what() << '\n';
    return failure.Status();
  } catch (const std::exception& failure) {
    std::cerr << "postwright: stopped: " << failure.what() << '\n';
    return kExitFailed;
  }
}
