#include "apps/addressbook/fix/StreetFetch.h"

#include <QCoreApplication>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStandardPaths>

namespace postwright::addressbook {

namespace {

constexpr int kExitDone = 0;
const QString kProgram = QStringLiteral("postwright-base");

// The one that was installed or built with this program goes before others. Empty: there is none.
QString programPath() {
  const QString own =
      QStandardPaths::findExecutable(kProgram, {QCoreApplication::applicationDirPath()});
  return own.isEmpty() ? QStandardPaths::findExecutable(kProgram) : own;
}

StreetFetch::Progress progressOf(const QJsonObject& line) {
  StreetFetch::Progress progress;
  const QString step = line[QLatin1String("step")].toString();
  progress.step = step == QLatin1String("fetching")  ? StreetFetch::Step::Fetching
                  : step == QLatin1String("reading") ? StreetFetch::Step::Reading
                                                     : StreetFetch::Step::Sorting;
  progress.percent = line[QLatin1String("percent")].toInt(-1);
  progress.files = line[QLatin1String("files")].toInt();
  progress.of = line[QLatin1String("of")].toInt();
  progress.bytes = line[QLatin1String("bytes")].toInteger();
  progress.secondsLeft = line[QLatin1String("secondsLeft")].toInteger(-1);
  progress.rows = line[QLatin1String("rows")].toInteger();
  return progress;
}

}  // namespace

StreetFetch::StreetFetch(QObject* parent) : QObject(parent) {
  connect(&_process, &QProcess::readyReadStandardOutput, this, &StreetFetch::readProgress);
  connect(&_process, &QProcess::readyReadStandardError, this, &StreetFetch::readWords);
  connect(&_process, &QProcess::finished, this, &StreetFetch::finish);
  connect(&_process, &QProcess::errorOccurred, this, &StreetFetch::fail);
}

// Nothing is lost by a kill.
StreetFetch::~StreetFetch() {
  _process.disconnect(this);
  _process.kill();
  _process.waitForFinished();
}

void StreetFetch::start(const QString& place, const QString& server) {
  if (isRunning()) {
    return;
  }
  _isStopping = false;
  _lastWords.clear();
  const QString program = programPath();
  if (program.isEmpty()) {
    emit ended(End::Failed,
               tr("The program “%1”, which fetches them, is not installed. Debian has it "
                  "in the package postwright-verifyd.")
                   .arg(kProgram));
    return;
  }
  QStringList arguments = {QStringLiteral("fetch"), QStringLiteral("--json")};
  if (!server.isEmpty()) {
    arguments += {QStringLiteral("--mirror"), server};
  }
  arguments += {QStringLiteral("--"), place};
  _process.start(program, arguments, QIODevice::ReadOnly);
  emit moved({});
}

void StreetFetch::stop() {
  if (isRunning()) {
    _isStopping = true;
    _process.terminate();
  }
}

void StreetFetch::readProgress() {
  _process.setReadChannel(QProcess::StandardOutput);
  while (_process.canReadLine()) {
    emit moved(progressOf(QJsonDocument::fromJson(_process.readLine()).object()));
  }
}

void StreetFetch::readWords() {
  _process.setReadChannel(QProcess::StandardError);
  while (_process.canReadLine()) {
    QString line = QString::fromLocal8Bit(_process.readLine()).trimmed();
    if (const QString name = kProgram + QLatin1String(": "); line.startsWith(name)) {
      line.remove(0, name.size());
      _lastWords = line;  // other lines tell the usage
    }
    emit said(line);
  }
}

void StreetFetch::finish(int code, QProcess::ExitStatus status) {
  readWords();
  if (status == QProcess::NormalExit && code == kExitDone) {
    emit ended(End::Done, {});
  } else if (_isStopping) {
    emit ended(End::Stopped, {});
  } else {
    emit ended(End::Failed, !_lastWords.isEmpty() && status == QProcess::NormalExit
                                ? _lastWords
                                : tr("“%1” was ended by the system.").arg(kProgram));
  }
}

// Every other error is followed by an end.
void StreetFetch::fail(QProcess::ProcessError error) {
  if (error == QProcess::FailedToStart) {
    emit ended(End::Failed, _process.errorString());
  }
}

}  // namespace postwright::addressbook
