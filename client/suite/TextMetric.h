#ifndef POSTWRIGHT_CLIENT_SUITE_TEXTMETRIC_H_
#define POSTWRIGHT_CLIENT_SUITE_TEXTMETRIC_H_

#include <QFont>
#include <QSizeF>
#include <QString>

namespace postwright::TextMetric {

// Returns the width and height that `text` takes in `font`, in device-independent pixels: each line
// break begins a line, long lines are not wrapped, an empty text is one line high and 0 wide.
// Needs a QGuiApplication and runs on its thread.
QSizeF sizeForString(const QString& text, const QFont& font);

}  // namespace postwright::TextMetric

#endif  // POSTWRIGHT_CLIENT_SUITE_TEXTMETRIC_H_
