// The program `postwright-addressbook`.

#include <postwright/Deployment.h>
#include <postwright/FetchTimeout.h>

#include <CLI/CLI.hpp>
#include <QApplication>
#include <QIcon>
#include <csignal>
#include <cstdlib>
#include <iostream>

#include "apps/CharacterLocale.h"
#include "apps/ServerOption.h"
#include "apps/TimeOption.h"
#include "apps/addressbook/fix/BatchFixer.h"
#include "apps/addressbook/settings/Translations.h"
#include "apps/addressbook/window/AddressBookWindow.h"

namespace postwright::addressbook {

namespace {

enum ExitStatus : int { kExitDone = 0, kExitFailed = 1, kExitUsage = 2 };

constexpr const char* kUsage =
    "postwright-addressbook [--server HOST[:PORT]] [--timeout TIME] [FILE]";

constexpr const char* kFooter =
    R"(FILE is an address book: a CSV file with a header, a vCard file or a .pwbook file. Its kind is told
by what it holds. Without one the program begins with an empty address book.

Exit status: 0 done; 1 there is no display or the program failed; 2 wrong usage.

Example: postwright-addressbook friends.csv)";

struct Options {
  std::string server;
  std::chrono::seconds timeout{0};  // of one request; 0 is the build's own
  std::string file;
};

// Help and version need no display, so the command line is read before Qt starts. Returns true
// where the program is to go on.
bool readOptions(int argc, char** argv, Options& options, ExitStatus& status) {
  CLI::App app("Keeps US postal addresses, corrects them and prints them on label sheets.",
               "postwright-addressbook");
  app.set_version_flag("--version", "postwright-addressbook " POSTWRIGHT_VERSION,
                       "Print the version and exit");
  app.set_help_flag("-h,--help", "Print this help and exit");
  AddServerOption(app, options.server, "none, the program answers by itself,");
  AddTimeOption(app, "--timeout", options.timeout,
                "How long a request to it may last, such as 20s (default 2min)");
  app.add_option("FILE", options.file, "The address book to open")->type_name("");
  app.footer(kFooter);
  try {
    app.parse(argc, argv);
    return true;
  } catch (const CLI::Success& question) {
    status = app.exit(question) == 0 ? kExitDone : kExitFailed;
  } catch (const CLI::ParseError& error) {
    std::cerr << "postwright-addressbook: " << error.what() << "\nUsage: " << kUsage
              << "\n'postwright-addressbook --help' says more.\n";
    status = kExitUsage;
  }
  return false;
}

// Qt ends the process with a signal where it finds no display; this says what to do first.
bool hasDisplay() {
  for (const char* const name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
    const char* const value = std::getenv(name);
    if (value != nullptr && *value != '\0') {
      return true;
    }
  }
  std::cerr << "postwright-addressbook: there is no display to show a window on. Set DISPLAY, or "
               "run this in a desktop session.\n";
  return false;
}

int run(int argc, char** argv, const Options& options) {
  if (const std::string problem = UseServerOfEnvironment(); !problem.empty()) {
    std::cerr << "postwright-addressbook: " << problem << '\n';
    return kExitUsage;
  }
  if (options.timeout.count() > 0) {
    SetFetchTimeout(options.timeout);
  }
  QApplication application(argc, argv);
  QApplication::setOrganizationName(QStringLiteral("Postwright"));
  QApplication::setApplicationName(QStringLiteral("addressbook"));
  QApplication::setApplicationVersion(QStringLiteral(POSTWRIGHT_VERSION));
  QApplication::setDesktopFileName(QStringLiteral("postwright-addressbook"));
  QApplication::setWindowIcon(QIcon(QStringLiteral(":/addressbook/icons/addressbook.svg")));
  // Qt takes the locale of the environment; ours stays as SetCharacterLocale() has set it.
  SetCharacterLocale();
  installTranslations();
  // Desktops put it after the title of each window and dialog that does not end with it.
  QGuiApplication::setApplicationDisplayName(AddressBookWindow::programName());
  BatchFixer fixer(options.server, IsServerInEnvironment() ? GetDeployment().verifyHost : "");
  AddressBookWindow window(fixer);
  window.show();
  if (!options.file.empty()) {
    window.openPath(QString::fromLocal8Bit(options.file.c_str()));
  }
  return QApplication::exec();
}

}  // namespace

}  // namespace postwright::addressbook

int main(int argc, char** argv) {
  using namespace postwright::addressbook;
  try {
    // A file past the limit of its size is an error to tell, not a reason to end.
    std::signal(SIGXFSZ, SIG_IGN);
    postwright::SetCharacterLocale();
    Options options;
    ExitStatus status = kExitDone;
    if (!readOptions(argc, argv, options, status)) {
      return status;
    }
    return hasDisplay() ? run(argc, argv, options) : kExitFailed;
  } catch (const std::exception& failure) {
    std::cerr << "postwright-addressbook: stopped: " << failure.what() << '\n';
    return kExitFailed;
  }
}
