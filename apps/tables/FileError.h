#ifndef POSTWRIGHT_APPS_TABLES_FILEERROR_H_
#define POSTWRIGHT_APPS_TABLES_FILEERROR_H_

#include <QString>
#include <stdexcept>

namespace postwright::tables {

// A file that cannot be read or written. The message, in the user's language, says which file, what
// is wrong, where, and what to do. Whatever was on disk is still there.
class FileError : public std::runtime_error {
 public:
  explicit FileError(const QString& message)
      : std::runtime_error(message.toStdString()), _message(message) {}

  const QString& message() const { return _message; }

 private:
  QString _message;
};

}  // namespace postwright::tables

#endif  // POSTWRIGHT_APPS_TABLES_FILEERROR_H_
