#include "apps/addressbook/fix/BatchFixer.h"

#include <postwright/AddressEntry.h>
#include <postwright/PostwrightController.h>
#include <postwright/ReviewedFix.h>

#include <memory>

#include "apps/ServerOption.h"

namespace postwright::addressbook {

namespace {

constexpr int kApplied = -1000;

// A label on its way through the batch window. What comes of it is read from the window's records,
// which tell failures and labels found right, too.
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
  return {kind, text, knownOf(confirmation), sourceText(confirmation.Source())};
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

}  // namespace

BatchFixer::BatchFixer(std::string server) : _server(std::move(server)), _usual(GetDeployment()) {}

QList<FixOutcome> BatchFixer::fix(const QStringList& labels, const FixSettings& options,
                                  QWidget* parent) {
  pointTo(options.server);
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

QString BatchFixer::usualServer() const {
  return QString::fromStdString(_server.empty() ? _usual.verifyHost : _server);
}

// Between two windows no fix is under way, so the process may be pointed elsewhere.
void BatchFixer::pointTo(const QString& server) const {
  if (!_server.empty()) {
    UseServer(_server);
  } else if (!server.isEmpty()) {
    UseServer(server.toStdString());
  } else {
    SetDeployment(_usual);
  }
}

}  // namespace postwright::addressbook
