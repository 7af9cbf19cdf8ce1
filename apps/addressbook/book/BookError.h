#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_BOOK_BOOKERROR_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_BOOK_BOOKERROR_H_

#include <QString>
#include <stdexcept>

namespace postwright::addressbook {

// A file that cannot be read or written. The message, in the user's language, says which file, what
// is wrong, where, and what to do. Whatever was on disk is still there.
class BookError : public std::runtime_error {
 public:
  explicit BookError(const QString& message)
      : std::runtime_error(message.toStdString()), _message(message) {}

  const QString& message() const { return _message; }

 private:
  QString _message;
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_BOOK_BOOKERROR_H_
