#include "apps/addressbook/sheet/LabelSheet.h"

#include <algorithm>

namespace postwright::addressbook {

const QList<LabelSheet>& LabelSheet::all() {
  // The gaps between columns are 1/8 and 3/16 inch, what is left of the width is halved.
  static const QList<LabelSheet> sheets = {
      {"letter-30", "1 x 2-5/8", 3, 10, {2.625, 1.0}, {0.1875, 0.5}, {2.75, 1.0}},
      {"letter-20", "1 x 4", 2, 10, {4.0, 1.0}, {0.15625, 0.5}, {4.1875, 1.0}},
      {"letter-10", "2 x 4", 2, 5, {4.0, 2.0}, {0.15625, 0.5}, {4.1875, 2.0}},
  };
  return sheets;
}

const LabelSheet& LabelSheet::named(const QString& name) {
  const auto found = std::find_if(all().begin(), all().end(), [&name](const LabelSheet& sheet) {
    return QLatin1String(sheet.name) == name;
  });
  return found == all().end() ? all().first() : *found;
}

QString LabelSheet::title() const {
  return tr("%1 in, %2 labels a sheet").arg(QLatin1String(measures)).arg(size());
}

QRectF LabelSheet::place(int index) const {
  const int column = index % columns;
  const int row = index / columns;
  return {first + QPointF(column * pitch.width(), row * pitch.height()), label};
}

}  // namespace postwright::addressbook
