// The host guide's chapter on the batch window: a host whose entries are contacts.
//
//   guide-window HOST:PORT
//
// The lines between "guide:" and "guide: end" are shown in docs/host-guide.md. On the offscreen
// platform, where nobody can press Update, the program presses it.

#include <postwright/Deployment.h>
#include <postwright/NotificationCenter.h>
#include <postwright/PostwrightController.h>

#include <QApplication>
#include <QPushButton>
#include <QTextStream>
#include <QTimer>
#include <locale>

namespace {

struct Contact {
  QString label;
};

// guide: entry
class ContactEntry final : public postwright::AddressEntry {
 public:
  explicit ContactEntry(Contact* contact) : _contact(contact) {}
  QString value() const override { return _contact->label; }
  void setValue(const QString& text) override { _contact->label = text; }

 private:
  Contact* _contact;
};
// guide: end

void show(const QString& text) {
  QTextStream(stdout) << text << '\n';
}

void pressUpdateWithoutScreen() {
  if (QGuiApplication::platformName() != QStringLiteral("offscreen")) {
    return;
  }
  auto* look = new QTimer(qApp);
  QObject::connect(look, &QTimer::timeout, qApp, [look] {
    auto* window =
        qobject_cast<postwright::PostwrightController*>(QApplication::activeModalWidget());
    if (window == nullptr) {
      return;
    }
    look->deleteLater();
    QObject::connect(window, &postwright::PostwrightController::workerStopped, window,
                     [window] { window->bnUpdateClick(); });
  });
  look->start(0);
}

void reload(const QList<Contact>& contacts) {
  for (const Contact& contact : contacts) {
    show(contact.label.simplified());
  }
}

void fixContacts(QList<Contact>& contacts) {
  // guide: window
  QList<std::shared_ptr<postwright::AddressEntry>> entries;
  for (Contact& contact : contacts) {
    entries.append(std::make_shared<ContactEntry>(&contact));
  }
  postwright::PostwrightClient client;
  client.fixAddressWithDialog(entries, true, postwright::CapitalizationMixed, std::nullopt);
  // guide: end
}

void fixWithDirectory(QList<Contact>& contacts) {
  const QList<std::shared_ptr<postwright::AddressEntry>> entries{
      std::make_shared<ContactEntry>(&contacts[0]), std::make_shared<ContactEntry>(&contacts[1])};
  // guide: controller
  postwright::PostwrightController window(entries, true, postwright::CapitalizationMixed,
                                          std::nullopt);
  window.setAsk([](postwright::PostwrightClient& asking, const QString& address) {
    postwright::AddressOutcome outcome;
    if (address.startsWith(QStringLiteral("Mailroom"))) {  // our own people are not asked about
      outcome.answer.emplace().ExactAddress = address;
    } else {
      outcome.answer = asking.fixAddress(address);
      outcome.message = asking.lastResult().value_or(QString());
    }
    return outcome;
  });
  pressUpdateWithoutScreen();
  if (window.exec() == -1000) {  // -1001 after Cancel
    for (const postwright::BatchResultRecordPointer& record : window.results()) {
      record->entry()->setValue(record->values().fixed);
    }
  }
  // guide: end
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  // After the application, which sets the C library's locale from the environment.
  std::locale::global(std::locale(std::locale::classic(), "C.UTF-8", std::locale::ctype));
  if (argc != 2) {
    QTextStream(stderr) << "usage: guide-window HOST:PORT\n";
    return 2;
  }
  postwright::SetDeployment({argv[1], postwright::GetDeployment().userId, argv[1]});
  QList<Contact> contacts{{QStringLiteral("Mailroom\n12 n main street\naustin tx 78701")},
                          {QStringLiteral("1501 north lamar boulevard\naustin texas 78703")}};
  // guide: reload
  QObject::connect(postwright::NotificationCenter::defaultCenter(),
                   &postwright::NotificationCenter::notificationPosted, &application,
                   [&](const QString& name) {
                     if (name == postwright::ReloadAddressBookNotification) {
                       reload(contacts);
                     }
                   });
  // guide: end
  fixWithDirectory(contacts);
  show(contacts[1].label.simplified());
  pressUpdateWithoutScreen();
  fixContacts(contacts);
  return 0;
}
