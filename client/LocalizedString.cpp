#include "client/LocalizedString.h"

#include <QLocale>
#include <QTranslator>
#include <algorithm>
#include <limits>
#include <memory>

namespace postwright {
namespace {

std::unique_ptr<QTranslator> LoadTable() {
  const QString folder = QStringLiteral(":/com.tarnix.pallo.postwright");
  const QString name = QStringLiteral("postwright");
  auto table = std::make_unique<QTranslator>();
  if (!table->load(QLocale(), name, QStringLiteral("_"), folder)) {
    (void)table->load(name + QStringLiteral("_en"), folder);
  }
  return table;
}

const QTranslator& Table() {
  static const std::unique_ptr<QTranslator> table = LoadTable();
  return *table;
}

}  // namespace

QString localizedString(const char* key) {
  return Table().translate(nullptr, key);
}

QString localizedString(const char* key, qsizetype count) {
  // Beyond the range of int every language that the library has uses one form.
  const int number = static_cast<int>(std::min<qsizetype>(count, std::numeric_limits<int>::max()));
  return Table()
      .translate(nullptr, key, nullptr, number)
      .replace(QStringLiteral("%n"), QLocale().toString(static_cast<qlonglong>(count)));
}

}  // namespace postwright
