#include "service/UserList.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <string_view>
#include <utility>

#include "common/SmallText.h"

namespace postwright::service {
namespace {

bool IsName(std::string_view text) {
  return text.size() <= UserList::kLongestName &&
         std::all_of(text.begin(), text.end(), [](char c) { return c > ' ' && c <= '~'; });
}

}  // namespace

UserList::UserList(std::filesystem::path file) : file_(std::move(file)), names_(Read()) {}

void UserList::Reload() {
  Names names = Read();
  const std::lock_guard lock(mutex_);
  names_.swap(names);
}

bool UserList::Allows(const std::string& userId) const {
  const std::lock_guard lock(mutex_);
  return names_.contains(userId);
}

size_t UserList::Size() const {
  const std::lock_guard lock(mutex_);
  return names_.size();
}

UserList::Names UserList::Read() const {
  std::ifstream lines(file_);
  Names names;
  std::string line;
  for (size_t number = 1; std::getline(lines, line); ++number) {
    const std::string_view name = Trim(line);
    if (name.empty() || name.starts_with('#')) {
      continue;
    }
    if (!IsName(name)) {
      throw UserListError(file_.string() + ": line " + std::to_string(number) +
                          ": is not a USERID of up to " + std::to_string(kLongestName) +
                          " letters without a blank");
    }
    names.emplace(name);
  }
  if (!lines.eof()) {
    throw UserListError(file_.string() + ": cannot be read: " + std::strerror(errno));
  }
  if (names.empty()) {
    throw UserListError(file_.string() + ": holds no USERID; it has one a line");
  }
  return names;
}

}  // namespace postwright::service
