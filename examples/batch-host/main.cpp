// A host in one file: shows the batch window for the labels of a text file and prints what became
// of them. The file is not changed.

#include <postwright/Deployment.h>
#include <postwright/PostwrightController.h>

#include <QApplication>
#include <QCommandLineParser>
#include <QFile>
#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QTextStream>
#include <locale>

#include "Palette.h"

using namespace postwright;  // NOLINT(google-build-using-namespace)

namespace {

// What the library needs of a host's own object: to give its text, and to take another.
class Label final : public AddressEntry {
 public:
  explicit Label(QString text) : _text(std::move(text)) {}
  QString value() const override { return _text; }
  void setValue(const QString& text) override { _text = text; }

 private:
  QString _text;
};

std::optional<QByteArray> readFile(const QString& name) {
  QFile file(name);
  if (!file.open(QIODevice::ReadOnly)) {
    QTextStream(stderr) << "batch-host: " << name << ": " << file.errorString() << '\n';
    return std::nullopt;
  }
  return file.readAll();
}

// Labels are separated by blank lines.
QList<std::shared_ptr<AddressEntry>> labelsOf(const QByteArray& text) {
  static const QRegularExpression blankLines(QStringLiteral("\\n(?:[ \\t]*\\n)+"));
  QList<std::shared_ptr<AddressEntry>> labels;
  const QString whole = QString::fromUtf8(text).remove(u'\r');
  for (const QString& label : whole.split(blankLines, Qt::SkipEmptyParts)) {
    if (!label.trimmed().isEmpty()) {
      labels.append(std::make_shared<Label>(label.trimmed()));
    }
  }
  return labels;
}

// A host may know addresses that the service cannot tell apart: [{"address": "...",
// "candidates": [{"template": "...", "pattern": "...", "low": "1A", "high": "1F"}, ...]}, ...].
QHash<QString, QJsonArray> directoryOf(const QByteArray& json) {
  QHash<QString, QJsonArray> directory;
  const QJsonArray places = QJsonDocument::fromJson(json).array();
  for (const QJsonValue& place : places) {
    directory.insert(place[u"address"].toString(), place[u"candidates"].toArray());
  }
  return directory;
}

// Asks the directory first, and the service about what is not in it.
AskFunction askDirectory(const QHash<QString, QJsonArray>& directory) {
  return [directory](PostwrightClient& client, const QString& address) {
    AddressOutcome outcome;
    if (!directory.contains(address)) {
      outcome.answer = client.fixAddress(address);
      outcome.message = client.lastResult().value_or(QString());
      return outcome;
    }
    outcome.answer.emplace();
    const QJsonArray candidates = directory.value(address);
    for (const QJsonValue& candidate : candidates) {
      outcome.answer->MatchedAddresses.append(
          PostwrightSelector::postwrightSelectorWithAddressPattern(
              candidate[u"pattern"].toString(), candidate[u"template"].toString(),
              candidate[u"low"].toString(), candidate[u"high"].toString()));
    }
    return outcome;
  };
}

void addOptions(QCommandLineParser& parser) {
  parser.setApplicationDescription(
      QStringLiteral("Shows the batch window for the labels of FILE, which are separated by blank "
                     "lines, and prints them as they are afterwards."));
  parser.addHelpOption();
  parser.addPositionalArgument(QStringLiteral("FILE"), QStringLiteral("The labels, UTF-8."));
  parser.addOptions({
      {QStringLiteral("case"), QStringLiteral("upper (the default), lower or mixed."),
       QStringLiteral("CASE"), QStringLiteral("upper")},
      {QStringLiteral("keep-punctuation"), QStringLiteral("Leave punctuation as it is.")},
      {QStringLiteral("mixed-case"), QStringLiteral("Special spellings, \"DeWitt;MacArthur\"."),
       QStringLiteral("SPELLINGS")},
      {QStringLiteral("server"), QStringLiteral("The Verify service."),
       QStringLiteral("HOST[:PORT]")},
      {QStringLiteral("candidates"), QStringLiteral("Addresses to choose from, JSON."),
       QStringLiteral("FILE")},
      {QStringLiteral("plain"), QStringLiteral("Leave out what a host has to turn on.")},
      {QStringLiteral("dark"), QStringLiteral("Dark colours.")},
  });
}

// The process's fixes go to HOST[:PORT], and its network is what reaches that host.
void askServer(const QString& server) {
  Deployment deployment = GetDeployment();
  deployment.verifyHost = server.toStdString();
  deployment.probeHost = deployment.verifyHost;
  SetDeployment(deployment);
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  // The library reads letters by the character locale, which the host sets: to UTF-8, before the
  // first fix but after QApplication is made, which sets the environment's.
  std::locale::global(std::locale(std::locale::classic(), "C.UTF-8", std::locale::ctype));
  QCommandLineParser parser;
  addOptions(parser);
  parser.process(application);
  if (parser.positionalArguments().size() != 1) {
    parser.showHelp(2);
  }
  if (parser.isSet(QStringLiteral("dark"))) {
    useDarkColours();
  }
  if (parser.isSet(QStringLiteral("server"))) {
    askServer(parser.value(QStringLiteral("server")));
  }
  const std::optional<QByteArray> text = readFile(parser.positionalArguments().first());
  const std::optional<QByteArray> candidates =
      parser.isSet(QStringLiteral("candidates"))
          ? readFile(parser.value(QStringLiteral("candidates")))
          : QByteArray();
  if (!text || !candidates) {
    return 1;
  }

  const QStringList cases{QStringLiteral("upper"), QStringLiteral("lower"),
                          QStringLiteral("mixed")};
  const auto capitalization =
      static_cast<qint32>(cases.indexOf(parser.value(QStringLiteral("case"))));
  if (capitalization < 0) {
    parser.showHelp(2);
  }
  const QList<std::shared_ptr<AddressEntry>> labels = labelsOf(*text);
  PostwrightController window(labels, !parser.isSet(QStringLiteral("keep-punctuation")),
                              capitalization, parser.value(QStringLiteral("mixed-case")));
  if (!parser.isSet(QStringLiteral("plain"))) {
    window.setOptions(BatchOptions::all());
  }
  if (!candidates->isEmpty()) {
    window.setAsk(askDirectory(directoryOf(*candidates)));
  }
  const bool applied = window.exec() == -1000;
  if (applied) {
    const BatchResultRecordList results = window.results();
    for (const BatchResultRecordPointer& record : results) {
      record->entry()->setValue(record->values().fixed);
    }
  }
  QTextStream out(stdout);
  for (const std::shared_ptr<AddressEntry>& label : labels) {
    out << label->value() << "\n\n";
  }
  return applied ? 0 : 1;
}
