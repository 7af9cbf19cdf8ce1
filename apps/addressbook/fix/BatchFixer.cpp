#include "apps/addressbook/fix/BatchFixer.h"

#include <postwright/AddressEntry.h>
#include <postwright/LocalAnswers.h>
#include <postwright/PostwrightController.h>
#include <postwright/ReviewedFix.h>

#include <QGuiApplication>
#include <QMessageBox>
#include <QScopeGuard>
#include <memory>

#include "apps/OwnService.h"
#include "apps/ServerOption.h"

namespace postwright::addressbook {

namespace {

constexpr int kApplied = -1000;

// A label on its way through the batch window. What comes of it is read from the window's records,
// which tell failures and labels found right too.
class LabelEntry final : public AddressEntry {
 public:
  LabelEntry(const QString& label, qsizetype place) : _label(label), _place(place) {}

  QString value() const override { return _label; }
  void setValue(const QString& text) override { _label = text; }
  qsizetype place() const { return _place; }

 private:
  QString _label;
  qsizetype _place;
};

Known knownOf(const Confirmation& confirmation) {
  switch (confirmation.Kind()) {
    case ConfirmationFull:
      return Known::Whole;
    case ConfirmationUnitMissing:
      return Known::UnitMissing;
    case ConfirmationUnitNotKnown:
      return Known::UnitNotKnown;
    case ConfirmationNumberNotKnown:
      return Known::NumberNotKnown;
    case ConfirmationFormOnly:
      return Known::FormOnly;
    default:
      return Known::NotTold;
  }
}

FixOutcome answered(FixOutcome::Kind kind, const QString& text, const Confirmation& confirmation) {
  return {kind, text, knownOf(confirmation), sourceText(confirmation.Source()),
          QString::fromStdString(confirmation.DeliveryPoint())};
}

FixOutcome outcomeOf(const BatchResultRecord& record) {
  const BatchResultRecord::Values values = record.values();
  if (values.pending) {
    return {};
  }
  switch (values.status) {
    case AddressStatusFixed:
      return values.own ? FixOutcome{FixOutcome::Kind::Corrected, values.fixed}
                        : answered(FixOutcome::Kind::Corrected, values.fixed, values.confirmation);
    case AddressStatusMultiple:
      return {FixOutcome::Kind::Failed,
              values.remark.isEmpty() ? BatchFixer::tr("Several addresses match") : values.remark};
    case AddressStatusError:
      return {values.isUnanswered() ? FixOutcome::Kind::NoAnswer : FixOutcome::Kind::Failed,
              values.failure()};
    case AddressStatusUnchanged:
      break;
  }
  // Where the user tried another text and that one was well written, nothing is known of the label;
  // nor where the user kept it, or nobody was asked.
  if (values.address != record.typed() || !values.isWellWritten()) {
    return {};
  }
  return answered(FixOutcome::Kind::Right, record.isFormed() ? values.fixed : QString(),
                  values.confirmation);
}

QString pathText(const std::filesystem::path& path) {
  return QString::fromLocal8Bit(path.c_str());
}

}  // namespace

BatchFixer::BatchFixer(std::string server, std::string usual)
    : _server(std::move(server)), _usual(std::move(usual)) {}

QList<FixOutcome> BatchFixer::fix(const QStringList& labels, const FixSettings& options,
                                  QWidget* parent) {
  if (const QString problem = pointTo(options.server); !problem.isEmpty()) {
    QMessageBox box(QMessageBox::NoIcon, {}, tr("No address was checked."), {}, parent);
    box.setInformativeText(problem);
    box.setTextFormat(Qt::PlainText);
    box.addButton(tr("Close"), QMessageBox::RejectRole);
    box.exec();
    return {};
  }
  QList<std::shared_ptr<AddressEntry>> entries;
  for (const QString& label : labels) {
    entries.append(std::make_shared<LabelEntry>(label, entries.size()));
  }
  PostwrightController window(entries, false, static_cast<qint32>(options.textCase),
                              options.spellings, parent);
  BatchOptions all = BatchOptions::all();
  all.form = {static_cast<PunctuationForm>(options.punctuation),
              static_cast<NameForm>(options.names)};
  window.setOptions(all);
  if (window.exec() != kApplied) {
    return {};
  }
  QList<FixOutcome> outcomes(labels.size());
  for (const BatchResultRecordPointer& record : window.records()) {
    const auto place = static_cast<const LabelEntry&>(*record->entry()).place();
    outcomes[place] = outcomeOf(*record);
  }
  return outcomes;
}

QString BatchFixer::serverFor(const QString& server) const {
  return !_server.empty()    ? QString::fromStdString(_server)
         : !server.isEmpty() ? server
                             : QString::fromStdString(_usual);
}

OwnStreets BatchFixer::ownStreets() const {
  OwnStreets streets;
  try {
    for (const std::filesystem::path& base : FindBases()) {
      streets.bases.append(pathText(base));
    }
  } catch (const std::exception& failure) {
    streets.problem = QString::fromLocal8Bit(failure.what());
  }
  return streets;
}

// Between two windows no fix is under way, so the process may be pointed elsewhere.
QString BatchFixer::pointTo(const QString& server) {
  const std::string asked = serverFor(server).toStdString();
  if (!asked.empty()) {
    SetLocalAnswers({});
    UseServer(asked);
    return {};
  }
  QGuiApplication::setOverrideCursor(Qt::WaitCursor);  // a large base is read into memory
  const auto restore = qScopeGuard([] { QGuiApplication::restoreOverrideCursor(); });
  try {
    _own.use();
  } catch (const std::exception& failure) {
    return tr("%1\n\nTake that file away or make it again with postwright-base, or name a service "
              "in "
              "the preferences.")
        .arg(QString::fromLocal8Bit(failure.what()));
  }
  return {};
}

}  // namespace postwright::addressbook
