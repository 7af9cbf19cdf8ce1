#ifndef POSTWRIGHT_CLIENT_LOCALCLIENT_H_
#define POSTWRIGHT_CLIENT_LOCALCLIENT_H_

#include <postwright/LocalService.h>

#include <QFile>
#include <QString>
#include <QStringList>
#include <filesystem>
#include <optional>
#include <vector>

namespace postwright {

// UseLocalService() as a Qt program calls it: every PostwrightClient and every batch window of the
// process is answered within it from now on, from lists of ZIP codes and address bases.
//
//   if (const auto problem = useLocalService({zips, texas})) {
//     show(*problem);
//   }
//
// Nil where the files are in use; else which of them cannot be used and why, in English, and
// everything stays as it was. Takes as long as reading the files does. Any thread.
//
// A program that calls this links libpostwright-local (Postwright::Local) too; libpostwright does
// not need it.
inline std::optional<QString> useLocalService(const QStringList& files) {
  std::vector<std::filesystem::path> paths;
  for (const QString& file : files) {
    paths.emplace_back(QFile::encodeName(file).toStdString());
  }
  try {
    UseLocalService(paths);
    return std::nullopt;
  } catch (const LocalServiceError& failure) {
    return QFile::decodeName(failure.what());
  }
}

}  // namespace postwright

#endif  // POSTWRIGHT_CLIENT_LOCALCLIENT_H_
