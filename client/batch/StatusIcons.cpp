#include "client/batch/StatusIcons.h"

#include <postwright/BatchResultRecord.h>

#include <QGuiApplication>
#include <QPalette>

namespace postwright {
namespace {

// Qt finds the images for double and triple scale beside the one that is named. The image of a
// selected row and of the filter at rest is the same: the style would fade it.
QIcon load(const QString& name) {
  const QString file = QStringLiteral(":/com.tarnix.pallo.postwright/%1.png").arg(name);
  QIcon icon(file);
  icon.addFile(file, {}, QIcon::Selected);
  icon.addFile(file, {}, QIcon::Disabled);
  return icon;
}

struct StatusImages {
  explicit StatusImages(const QString& folder)
      : fixed(load(folder + QStringLiteral("Fixed"))),
        multiple(load(folder + QStringLiteral("Multiple"))),
        error(load(folder + QStringLiteral("Error"))) {}

  QIcon fixed;
  QIcon multiple;
  QIcon error;
};

}  // namespace

QIcon statusIcon(qint32 status) {
  // Kept past the application object, which images cannot outlive in order.
  static const auto& light = *new StatusImages(QString());
  static const auto& dark = *new StatusImages(QStringLiteral("dark/"));
  const bool onDark = QGuiApplication::palette().color(QPalette::Base).lightness() < 128;
  const StatusImages& images = onDark ? dark : light;
  switch (status) {
    case AddressStatusFixed:
      return images.fixed;
    case AddressStatusMultiple:
      return images.multiple;
    case AddressStatusError:
      return images.error;
    default:
      return {};
  }
}

}  // namespace postwright
