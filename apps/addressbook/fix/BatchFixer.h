#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_FIX_BATCHFIXER_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_FIX_BATCHFIXER_H_

#include <postwright/Deployment.h>

#include <QCoreApplication>
#include <string>

#include "apps/addressbook/fix/AddressFixer.h"

namespace postwright::addressbook {

// Fixes addresses in the library's batch window.
class BatchFixer final : public AddressFixer {
  Q_DECLARE_TR_FUNCTIONS(postwright::addressbook::BatchFixer)

 public:
  // `server`, from the command line, counts before the one of the options; empty: none was given.
  explicit BatchFixer(std::string server);

  QList<FixOutcome> fix(const QStringList& labels, const FixSettings& options,
                        QWidget* parent) override;
  QString usualServer() const override;

 private:
  void pointTo(const QString& server) const;

  std::string _server;
  Deployment _usual;  // what the library was built for, or the environment names
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_FIX_BATCHFIXER_H_
