// A Qt host that opens the batch window for its own entries, presses Update as a user would, and
// checks what was written back.

#include <postwright/Deployment.h>
#include <postwright/PostwrightController.h>

#include <QApplication>
#include <QPushButton>
#include <QTextStream>
#include <QTimer>
#include <locale>

using namespace postwright;

namespace {

class Recipient final : public AddressEntry {
 public:
  explicit Recipient(const QString& label) : _label(label) {}
  QString value() const override { return _label; }
  void setValue(const QString& text) override { _label = text; }

 private:
  QString _label;
};

// A mailing house's own directory answers; no service is needed.
AddressOutcome askDirectory(PostwrightClient& client, const QString& address) {
  AddressOutcome outcome;
  if (address.contains(QStringLiteral("main"))) {
    outcome.answer.emplace();
    outcome.answer->ExactAddress =
        client.capitalizeAddress(QStringLiteral("12 N MAIN ST\nAUSTIN, TX 78701"));
  } else {
    outcome.message = QStringLiteral("not in the directory");
  }
  return outcome;
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  // After the application, which sets the C library's locale from the environment.
  std::locale::global(std::locale(std::locale::classic(), "C.UTF-8", std::locale::ctype));
  const QList<std::shared_ptr<AddressEntry>> recipients{
      std::make_shared<Recipient>(QStringLiteral("12 n main street\naustin texas 78701")),
      std::make_shared<Recipient>(QStringLiteral("nowhere"))};

  PostwrightController window(recipients, true, CapitalizationMixed, std::nullopt);
  window.setAsk(askDirectory);
  QObject::connect(&window, &PostwrightController::workerStopped, &window, [&window] {
    window.findChild<QPushButton*>(QStringLiteral("bnUpdate"))->click();
  });
  QTimer::singleShot(30000, &window, [&window] { window.bnCancelClick(); });
  const int code = window.exec();
  const BatchResultRecordList fixedRecords = window.results();
  for (const BatchResultRecordPointer& record : fixedRecords) {
    record->entry()->setValue(record->values().fixed);
  }

  QTextStream(stdout) << code << '\n'
                      << recipients[0]->value() << '\n'
                      << recipients[1]->value() << '\n';
  return code == -1000 &&
                 recipients[0]->value() == QStringLiteral("12 N Main St\nAustin TX 78701") &&
                 recipients[1]->value() == QStringLiteral("nowhere")
             ? 0
             : 1;
}
