// The host guide's chapters on PostwrightClient without its windows: text in, text out, options, a
// list, threads.
//
//   guide-client HOST:PORT
//
// The lines between "guide:" and "guide: end" are shown in docs/host-guide.md or README.md.

#include <postwright/BatchResultRecord.h>
#include <postwright/Deployment.h>
// guide: include
#include <postwright/PostwrightClient.h>
// guide: end
// guide: care-include
#include <postwright/ReviewedFix.h>
#include <postwright/VerifyFailure.h>
// guide: end

#include <QTextStream>
#include <QThread>
#include <QTimer>
#include <locale>

namespace {

void show(const QString& text) {
  QTextStream(stdout) << text << '\n';
}

void fix(const QString& text) {
  // guide: fix
  postwright::PostwrightClient client;
  client.setCapitalization(postwright::CapitalizationMixed);
  const std::optional<QString> fixed = client.fixAddressQuick(text);
  show(fixed ? *fixed : *client.lastResult());
  // guide: end
}

// guide: care
// Shows the corrected label, or why a person should look at it.
void fixWithCare(const QString& label) {
  postwright::PostwrightClient client;
  client.setRemovePunctuation(false);  // which signs stay is for LabelForm to say
  const postwright::ReviewedFix fix(client, label, {});
  if (fix.leftAlone() != postwright::LeftAloneNot) {
    show(QString::fromUtf8(postwright::TextOfReason(fix.leftAlone())));
  } else if (!fix.answer()) {
    const std::string server = postwright::GetDeployment().verifyHost;
    show(QString::fromStdString(postwright::VerifyFailure(client.lastReport(), server).Text()));
  } else if (fix.review().Doubtful()) {
    show(QString::fromStdWString(fix.review().Reason()));
  } else if (fix.confirmation().Contradicts()) {
    show(QString::fromUtf8(fix.confirmation().Text()));
  } else {
    show(fix.answer()->ExactAddress);
  }
}
// guide: end

void fixWithOptions() {
  // guide: options
  postwright::PostwrightClient client;
  client.setCapitalization(postwright::CapitalizationMixed);
  client.setRemovePunctuation(false);
  client.setMixedCase(QStringLiteral("DeLaCroix; MacArthur"));
  const std::optional<QString> fixed = client.fixAddressQuick(
      QStringLiteral("pat delacroix\n12 n main street\naustin, texas 78701"));
  // guide: end
  show(fixed ? *fixed : *client.lastResult());
}

// guide: list
// Corrects what can be corrected, and says what became of each.
void fixList(const QStringList& labels) {
  postwright::PostwrightClient client;
  for (const QString& label : labels) {
    postwright::BatchResultRecord record(label);
    record.fix(client);
    const postwright::BatchResultRecord::Values values = record.values();
    switch (values.status) {
      case postwright::AddressStatusUnchanged:
        show(QStringLiteral("right:   ") + values.address.simplified());
        break;
      case postwright::AddressStatusFixed:
        show(QStringLiteral("fixed:   ") + values.fixed.simplified());
        break;
      case postwright::AddressStatusMultiple:
        show(QStringLiteral("to choose from: %1").arg(values.matches.size()));
        break;
      case postwright::AddressStatusError:
        show(QStringLiteral("refused: ") + values.result);
        break;
    }
  }
}
// guide: end

void fixOnThread(const QString& text) {
  std::optional<QString> fixed;
  // guide: abandon
  auto abandoned = std::make_shared<std::atomic<bool>>(false);
  const std::unique_ptr<QThread> worker(QThread::create([&fixed, text, abandoned] {
    postwright::PostwrightClient client;  // belongs to this thread
    client.setAbandoned(abandoned);
    fixed = client.fixAddressQuick(text);
  }));
  worker->start();
  // ... and when the user has lost interest:
  *abandoned = true;
  worker->wait();  // a second, not the minute that a silent service can take
  // guide: end
}

}  // namespace

int main(int argc, char** argv) {
  std::locale::global(std::locale(std::locale::classic(), "C.UTF-8", std::locale::ctype));
  if (argc != 2) {
    QTextStream(stderr) << "usage: guide-client HOST:PORT\n";
    return 2;
  }
  postwright::SetDeployment({argv[1], postwright::GetDeployment().userId, argv[1]});
  const QString label = QStringLiteral("12 n main street\naustin, texas 78701");
  fix(label);
  fix(QStringLiteral("ring twice"));
  fixWithCare(QStringLiteral("3M Company\n12 n main street\naustin, texas 78701-1234"));
  fixWithCare(QStringLiteral("845E Main Street Apt 4\nHouston TX 77002"));
  fixWithCare(QStringLiteral("RR 3 Box 14\nSpringfield IL 62701"));
  fixWithCare(QStringLiteral("1 Nowhere Lane\nAtlantis AK 33139"));
  fixWithOptions();
  fixList({label, QStringLiteral("12 N Main St, Austin TX 78701"), QStringLiteral("ring twice")});
  fixOnThread(label);
  return 0;
}
