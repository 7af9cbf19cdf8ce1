#include "service/embedded/EmbeddedService.h"

#include <utility>

#include "postal/places/ZipList.h"
#include "service/UrlRequest.h"

namespace postwright::service {

EmbeddedService::EmbeddedService(std::vector<std::filesystem::path> files)
    : source_(std::move(files)),
      service_(source_, nullptr, {.pathPrefix = "", .takesNotes = false}) {
  if (source_.Zips()->ZipCount() == 0) {
    throw postal::ZipListError(
        "no list of ZIP codes is among the files; one comes with it as "
        "us-zips.tsv");
  }
}

LocalAnswer EmbeddedService::Answer(const std::string& url,
                                    const std::vector<std::string>& headers) {
  const HttpRequest request = RequestOf(url, headers);
  HttpReply reply;
  try {
    service_.Answer(request, [&reply](HttpReply given) { reply = std::move(given); });
  } catch (const std::exception& failure) {
    reply = FailureReply(failure.what());
  }
  return {reply.status, static_cast<std::int32_t>(reply.retryAfter.count()), std::move(reply.body)};
}

}  // namespace postwright::service
