#ifndef POSTWRIGHT_TESTS_CLIENT_BATCH_SERVICEPROCESS_H_
#define POSTWRIGHT_TESTS_CLIENT_BATCH_SERVICEPROCESS_H_

#include <postwright/Deployment.h>

#include <QProcess>

namespace postwright {

// The real service, a process of its own, on a free port; this process's fixes go there.
class ServiceProcess {
 public:
  ServiceProcess() { start(); }
  ~ServiceProcess() { die(); }

  // Starts, on the port it had before.
  void start() {
    _process.setProcessChannelMode(QProcess::MergedChannels);
    _process.start(QStringLiteral(POSTWRIGHT_VERIFYD),
                   {QStringLiteral("--listen"), QStringLiteral("127.0.0.1:%1").arg(_port)});
    if (_process.waitForReadyRead()) {
      _port = _process.readLine().trimmed().split(':').last().toInt();
    }
    const std::string endpoint = "127.0.0.1:" + std::to_string(_port);
    SetDeployment({.verifyHost = endpoint, .userId = "TEST", .probeHost = "127.0.0.1"});
  }

  // Ends without a good-bye.
  void die() {
    _process.kill();
    _process.waitForFinished();
  }

 private:
  QProcess _process;
  int _port = 0;
};

}  // namespace postwright

#endif  // POSTWRIGHT_TESTS_CLIENT_BATCH_SERVICEPROCESS_H_
