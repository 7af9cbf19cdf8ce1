#ifndef POSTWRIGHT_SERVICE_UPSTREAM_CREDENTIALS_H_
#define POSTWRIGHT_SERVICE_UPSTREAM_CREDENTIALS_H_

#include <filesystem>
#include <stdexcept>
#include <string>

namespace postwright::service {

// A credentials file that cannot be used; what() names the file, what is wrong and what to do, and
// nothing of its content.
class CredentialsError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// What an upstream knows us by.
//
//   # of https://developers.usps.com, application "labels"
//   client_id = 9f3c…
//   client_secret = 51b0…
//
// One name and value a line; empty lines and lines that begin with # are passed over.
struct Credentials {
  static constexpr size_t kLongestFile = 4096;  // bytes

  std::string clientId;
  std::string clientSecret;
  std::string userId;
  std::string password;

  // Reads `file`, which must be a regular file that belongs to the caller or to root and that
  // nobody else may read or write (mode 0400 or 0600). Throws CredentialsError for any other, for a
  // line of another form, and for values that are not printable ASCII.
  static Credentials Load(const std::filesystem::path& file);
};

}  // namespace postwright::service

#endif  // POSTWRIGHT_SERVICE_UPSTREAM_CREDENTIALS_H_
