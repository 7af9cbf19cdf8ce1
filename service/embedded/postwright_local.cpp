#include <postwright/postwright_local.h>

#include <postwright/LocalAnswers.h>
#include <postwright/LocalService.h>

#include <algorithm>
#include <filesystem>
#include <new>
#include <string_view>
#include <vector>

namespace {

// As much of the text as there is room for.
void Tell(std::string_view text, char* room, size_t size) {
  if (room != nullptr && size > 0) {
    room[text.copy(room, size - 1)] = '\0';
  }
}

}  // namespace

int32_t postwright_use_local_service(const char* const* files, size_t count, char* problem,
                                     size_t size) {
  Tell("", problem, size);
  if (count > 0 && (files == nullptr || std::count(files, files + count, nullptr) > 0)) {
    return POSTWRIGHT_BAD_ARGUMENT;
  }
  try {
    if (count == 0) {
      postwright::SetLocalAnswers({});
    } else {
      postwright::UseLocalService({files, files + count});
    }
    return POSTWRIGHT_NONE;
  } catch (const std::bad_alloc&) {
    return POSTWRIGHT_NO_MEMORY;
  } catch (const std::exception& failure) {
    Tell(failure.what(), problem, size);
    return POSTWRIGHT_BAD_FILE;
  }
}
