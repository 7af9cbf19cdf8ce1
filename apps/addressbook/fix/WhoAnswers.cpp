#include "apps/addressbook/fix/WhoAnswers.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace postwright::addressbook {

namespace {

class WhoAnswers {
  Q_DECLARE_TR_FUNCTIONS(postwright::addressbook::WhoAnswers)
};

QStringList namesOf(const QStringList& paths) {
  QStringList names;
  for (const QString& path : paths) {
    names.append(QFileInfo(path).fileName());
  }
  return names;
}

}  // namespace

QString whoAnswers(const AddressFixer& fixer, const QString& server) {
  const QString asked = fixer.serverFor(server);
  if (!asked.isEmpty()) {
    return asked == server
               ? WhoAnswers::tr("%1 is asked.").arg(asked)
               : WhoAnswers::tr("%1 is asked, as the program was started so.").arg(asked);
  }
  const OwnStreets streets = fixer.ownStreets();
  if (!streets.problem.isEmpty()) {
    return WhoAnswers::tr("This program would answer by itself, but: %1").arg(streets.problem);
  }
  return streets.bases.isEmpty()
             ? WhoAnswers::tr("This program answers by itself, from its list of ZIP codes only.")
             : WhoAnswers::tr("This program answers by itself, with the streets of %1.")
                   .arg(namesOf(streets.bases).join(QStringLiteral(", ")));
}

QString missingStreets(const AddressFixer& fixer, const QString& server) {
  if (!fixer.serverFor(server).isEmpty()) {
    return {};
  }
  const OwnStreets streets = fixer.ownStreets();
  if (!streets.problem.isEmpty()) {
    return streets.problem;
  }
  return streets.bases.isEmpty()
             ? WhoAnswers::tr(
                   "ZIP codes only: streets are not checked. Those of a state or county can be "
                   "fetched.")
             : QString();
}

}  // namespace postwright::addressbook
