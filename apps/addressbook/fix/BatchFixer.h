#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_FIX_BATCHFIXER_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_FIX_BATCHFIXER_H_

#include <QCoreApplication>
#include <string>

#include "apps/addressbook/fix/AddressFixer.h"
#include "apps/addressbook/fix/OwnAnswers.h"

namespace postwright::addressbook {

// Fixes addresses in the library's batch window.
class BatchFixer final : public AddressFixer {
  Q_DECLARE_TR_FUNCTIONS(postwright::addressbook::BatchFixer)

 public:
  // `server`, from the command line, counts before the one of the options, and that one before
  // `usual`, from the environment; empty: none was given.
  explicit BatchFixer(std::string server, std::string usual = {});

  QList<FixOutcome> fix(const QStringList& labels, const FixSettings& options,
                        QWidget* parent) override;
  QString serverFor(const QString& server) const override;
  OwnStreets ownStreets() const override;

 private:
  // Returns why the service cannot be asked; empty where it can.
  QString pointTo(const QString& server);

  std::string _server;
  std::string _usual;
  OwnAnswers _own;
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_FIX_BATCHFIXER_H_
