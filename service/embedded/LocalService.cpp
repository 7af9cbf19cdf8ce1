#include <postwright/LocalService.h>

#include <postwright/LocalAnswers.h>

#include <memory>
#include <new>

#include "service/embedded/EmbeddedService.h"

namespace postwright {

void UseLocalService(const std::vector<std::filesystem::path>& files) try {
  const auto service = std::make_shared<service::EmbeddedService>(files);
  SetLocalAnswers([service](const std::string& url, const std::vector<std::string>& headers) {
    return service->Answer(url, headers);
  });
} catch (const std::bad_alloc&) {
  throw;
} catch (const std::exception& failure) {
  throw LocalServiceError(failure.what());
}

}  // namespace postwright
