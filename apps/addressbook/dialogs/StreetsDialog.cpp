#include "apps/addressbook/dialogs/StreetsDialog.h"

#include <QAccessible>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QProgressBar>
#include <QPushButton>
#include <QRegularExpression>
#include <QVBoxLayout>

#include "apps/addressbook/widgets/ScrollingForm.h"
#include "postal/fetch/FetchPlaces.h"

namespace postwright::addressbook {

namespace {

constexpr int kFieldWidth = 360;
constexpr int kWhole = 100;  // percent

// "District of Columbia" of DISTRICT OF COLUMBIA.
QString stateText(std::string_view name) {
  QStringList words = QString::fromLatin1(name.data(), static_cast<qsizetype>(name.size()))
                          .toLower()
                          .split(QLatin1Char(' '));
  for (QString& word : words) {
    if (word != QLatin1String("of")) {
      word[0] = word[0].toUpper();
    }
  }
  return words.join(QLatin1Char(' '));
}

// A line of explanation, as plain text: the command's output is not markup.
QLabel* makeHint(const QString& text, QWidget* parent) {
  auto* const hint = new QLabel(text, parent);
  hint->setWordWrap(true);
  hint->setTextFormat(Qt::PlainText);
  hint->setForegroundRole(QPalette::PlaceholderText);
  return hint;
}

bool isFipsNumber(const QString& text) {
  static const QRegularExpression kDigits(QStringLiteral("^[0-9]{5}$"));
  return kDigits.match(text).hasMatch();
}

}  // namespace

StreetsDialog::StreetsDialog(QWidget* parent)
    : QDialog(parent),
      _fields(buildFields()),
      _bar(new QProgressBar(this)),
      _progress(new QLabel(this)),
      _words(makeHint({}, this)) {
  setWindowTitle(tr("Fetch Streets"));
  _bar->setAccessibleName(tr("How far it is"));
  _progress->setObjectName(QStringLiteral("streetsProgress"));
  _progress->setWordWrap(true);
  _progress->setTextFormat(Qt::PlainText);
  _progress->setTextInteractionFlags(Qt::TextSelectableByMouse);
  _words->setObjectName(QStringLiteral("streetsWords"));
  auto* const buttons = new QDialogButtonBox(this);
  _start = buttons->addButton(tr("&Fetch Streets"), QDialogButtonBox::ActionRole);
  _start->setObjectName(QStringLiteral("fetch"));
  _start->setDefault(true);
  _stop = buttons->addButton(tr("S&top"), QDialogButtonBox::ActionRole);
  _stop->setObjectName(QStringLiteral("stop"));
  QPushButton* const close = buttons->addButton(tr("Close"), QDialogButtonBox::RejectRole);
  for (QPushButton* const other : {_stop, close}) {
    other->setAutoDefault(false);  // Return begins, wherever it is pressed
  }
  auto* const layout = new QVBoxLayout(this);
  layout->addWidget(new ScrollingForm(_fields, this), 1);
  layout->addWidget(_bar);
  layout->addWidget(_progress);
  layout->addWidget(_words);
  layout->addWidget(buttons);
  connect(_start, &QPushButton::clicked, this, &StreetsDialog::start);
  connect(_stop, &QPushButton::clicked, &_fetch, &StreetFetch::stop);
  connect(buttons, &QDialogButtonBox::rejected, this, &StreetsDialog::reject);
  connect(&_fetch, &StreetFetch::moved, this, &StreetsDialog::tell);
  connect(&_fetch, &StreetFetch::said, _words, &QLabel::setText);
  connect(&_fetch, &StreetFetch::ended, this, &StreetsDialog::end);
  refresh();
  _state->setFocus();
  resizeToScreen(*this, sizeHint());
}

QWidget* StreetsDialog::buildFields() {
  auto* const fields = new QWidget;
  auto* const layout = new QFormLayout(fields);
  layout->setContentsMargins(0, 0, 0, 0);
  _state = new QComboBox(fields);
  _state->setObjectName(QStringLiteral("state"));
  _state->setMinimumWidth(kFieldWidth);
  for (const postal::StateCodes& state : postal::States()) {
    _state->addItem(
        stateText(state.name),
        QString::fromLatin1(state.code.data(), static_cast<qsizetype>(state.code.size())));
  }
  _state->model()->sort(0);
  _state->setPlaceholderText(tr("Choose one"));
  _state->setCurrentIndex(-1);
  _county = new QLineEdit(fields);
  _county->setObjectName(QStringLiteral("county"));
  _county->setPlaceholderText(tr("the whole state"));
  _server = new QLineEdit(fields);
  _server->setObjectName(QStringLiteral("streetsServer"));
  _server->setPlaceholderText(QStringLiteral("https://www2.census.gov"));
  layout->addRow(tr("&State:"), _state);
  layout->addRow(tr("&County:"), _county);
  layout->addRow({}, makeHint(tr("The Census Bureau publishes a file for each county, free for any "
                                 "use: the streets, and which house numbers each can have, not "
                                 "which houses there are. They come one at a time, so a large "
                                 "state takes a while."),
                              fields));
  layout->addRow(tr("Se&rver:"), _server);
  layout->addRow(
      {}, makeHint(tr("Where your company keeps a copy of these files: its address."), fields));
  connect(_state, &QComboBox::currentIndexChanged, this, &StreetsDialog::refresh);
  return fields;
}

QString StreetsDialog::placeText() const {
  const QString county = _county->text().trimmed();
  if (county.isEmpty()) {
    return _state->currentText();
  }
  return isFipsNumber(county) ? county
                              : tr("%1, %2", "county, state").arg(county, _state->currentText());
}

void StreetsDialog::start() {
  const QString county = _county->text().trimmed();
  const QString state = _state->currentData().toString();
  _words->clear();
  _fetch.start(county.isEmpty()       ? state
               : isFipsNumber(county) ? county
                                      : county + QLatin1String(", ") + state,
               _server->text().trimmed());
}

void StreetsDialog::tell(const StreetFetch::Progress& progress) {
  const QLocale locale;
  QString text;
  switch (progress.step) {
    case StreetFetch::Step::Asking:
      text = tr("Asking which files there are…");
      break;
    case StreetFetch::Step::Fetching:
      text = tr("%1 of %2 files fetched, %3.")
                 .arg(locale.toString(progress.files), locale.toString(progress.of),
                      locale.formattedDataSize(progress.bytes));
      if (progress.secondsLeft >= 0) {
        constexpr qint64 kMinute = 60;
        text += QLatin1Char(' ') + tr("About %n minutes are left.", nullptr,
                                      static_cast<int>(progress.secondsLeft / kMinute) + 1);
      }
      break;
    case StreetFetch::Step::Reading:
      text = tr("Reading: %1 rows so far.").arg(locale.toString(progress.rows));
      break;
    case StreetFetch::Step::Sorting:
      text = tr("Sorting the streets…");
      break;
  }
  _bar->setRange(0, progress.percent < 0 ? 0 : kWhole);  // one that only moves
  _bar->setValue(progress.percent);
  _progress->setText(text);
  refresh();
}

void StreetsDialog::end(StreetFetch::End end, const QString& why) {
  _progress->setText(end == StreetFetch::End::Done ? QString()
                     : end == StreetFetch::End::Stopped
                         ? tr("Stopped. What has come is kept: Fetch Streets goes on with it.")
                         : tr("The streets could not be fetched. %1").arg(why));
  _words->clear();
  refresh();
  if (end == StreetFetch::End::Done) {
    emit fetched(placeText());
    accept();
    return;
  }
  QAccessibleEvent alert(_progress, QAccessible::Alert);
  QAccessible::updateAccessibility(&alert);
  _start->setFocus();
}

void StreetsDialog::refresh() {
  const bool isRunning = _fetch.isRunning();
  _fields->setEnabled(!isRunning);
  _start->setEnabled(!isRunning && _state->currentIndex() >= 0);
  _start->setDefault(true);
  _stop->setEnabled(isRunning);
  _bar->setVisible(isRunning);
  _progress->setVisible(!_progress->text().isEmpty());
}

void StreetsDialog::reject() {
  if (_fetch.isRunning()) {
    _fetch.stop();
  } else {
    QDialog::reject();
  }
}

}  // namespace postwright::addressbook
