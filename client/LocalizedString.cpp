#include "client/LocalizedString.h"

#include <QLocale>
#include <QTranslator>
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

}  // namespace

QString localizedString(const char* key) {
  static const std::unique_ptr<QTranslator> table = LoadTable();
  return table->translate(nullptr, key);
}

}  // namespace postwright
