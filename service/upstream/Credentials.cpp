#include "service/upstream/Credentials.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <string_view>

#include "common/FileDescriptor.h"
#include "common/SmallText.h"

namespace postwright::service {
namespace {

struct NameRow {
  std::string_view name;
  std::string Credentials::*value;
};

constexpr NameRow kNames[] = {
    {"client_id", &Credentials::clientId},
    {"client_secret", &Credentials::clientSecret},
    {"user_id", &Credentials::userId},
    {"password", &Credentials::password},
};

// Says what is wrong with who may read the file, on the descriptor that is read afterwards.
std::string ObjectionTo(const struct stat& state) {
  if (!S_ISREG(state.st_mode)) {
    return "is not a regular file";
  }
  if (state.st_uid != geteuid() && state.st_uid != 0) {
    return "belongs to another user; make it the service's own (chown)";
  }
  if ((state.st_mode & (S_IRWXG | S_IRWXO)) != 0) {
    return "can be read by others; let its owner alone read it (chmod 600)";
  }
  if (state.st_size > static_cast<off_t>(Credentials::kLongestFile)) {
    return "is longer than " + std::to_string(Credentials::kLongestFile) + " bytes";
  }
  return {};
}

std::string ReadPrivate(const std::filesystem::path& file) {
  const FileDescriptor opened(open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  struct stat state = {};
  if (opened < 0 || fstat(opened, &state) != 0) {
    throw CredentialsError(file.string() + ": cannot be read: " + std::strerror(errno));
  }
  if (const std::string objection = ObjectionTo(state); !objection.empty()) {
    throw CredentialsError(file.string() + ": " + objection);
  }
  std::string text(Credentials::kLongestFile, '\0');
  const ssize_t length = read(opened, text.data(), text.size());
  if (length < 0) {
    throw CredentialsError(file.string() + ": cannot be read: " + std::strerror(errno));
  }
  text.resize(static_cast<size_t>(length));
  return text;
}

// Returns false for a line that is neither empty, nor a remark, nor a known name and a value.
bool ReadLine(std::string_view line, Credentials& credentials) {
  line = Trim(line);
  if (line.empty() || line.starts_with('#')) {
    return true;
  }
  const size_t equals = std::min(line.find('='), line.size());
  const std::string_view name = Trim(line.substr(0, equals));
  const std::string_view value = Trim(line.substr(std::min(equals + 1, line.size())));
  const bool isPrintable =
      std::all_of(value.begin(), value.end(), [](char c) { return c > ' ' && c <= '~'; });
  for (const NameRow& row : kNames) {
    if (row.name == name && !value.empty() && isPrintable) {
      credentials.*row.value = value;
      return true;
    }
  }
  return false;
}

}  // namespace

Credentials Credentials::Load(const std::filesystem::path& file) {
  const std::string text = ReadPrivate(file);
  Credentials credentials;
  std::string_view rest(text);
  for (size_t number = 1; !rest.empty(); ++number) {
    const size_t end = std::min(rest.find('\n'), rest.size());
    if (!ReadLine(rest.substr(0, end), credentials)) {
      throw CredentialsError(file.string() + ": line " + std::to_string(number) +
                             ": is not NAME = VALUE with client_id, client_secret, user_id or "
                             "password as its name");
    }
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  return credentials;
}

}  // namespace postwright::service
