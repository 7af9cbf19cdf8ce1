#ifndef POSTWRIGHT_SERVICE_USERLIST_H_
#define POSTWRIGHT_SERVICE_USERLIST_H_

#include <filesystem>
#include <memory>
#include <mutex>
#include <stdexcept>
#include <string>
#include <unordered_set>

namespace postwright::service {

// A list of users that cannot be used; what() names the file, the line and what is wrong with it.
class UserListError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// The USERIDs that are answered, from a file: one a line, up to 100 printable letters without a
// blank; empty lines and those that begin with `#` are passed over.
//
//   UserList users("/etc/postwright/users");
//   users.Allows("305KQVZ61948");
//
// Any thread may call any operation.
class UserList {
 public:
  static constexpr size_t kLongestName = 100;

  // Throws UserListError for a file that cannot be read, holds anything else, or nobody: a service
  // that answers no one has been set up by mistake.
  explicit UserList(std::filesystem::path file);

  // Reads the file again. Throws UserListError; the users known before stay then.
  void Reload();

  // Letters count as they are written.
  bool Allows(const std::string& userId) const;

  size_t Size() const;

 private:
  using Names = std::unordered_set<std::string>;

  Names Read() const;

  const std::filesystem::path file_;
  mutable std::mutex mutex_;
  Names names_;
};

}  // namespace postwright::service

#endif  // POSTWRIGHT_SERVICE_USERLIST_H_
