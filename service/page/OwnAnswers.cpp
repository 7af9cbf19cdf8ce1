#include "service/page/OwnAnswers.h"

#include <postwright/LocalAnswers.h>

#include <cstdint>
#include <future>
#include <memory>
#include <utility>

#include "service/UrlRequest.h"

namespace postwright::service {

OwnAnswers::OwnAnswers(AnswerSource& source)
    : service_(source, nullptr, {.pathPrefix = "", .takesNotes = false}) {
  SetLocalAnswers([this](const std::string& url, const std::vector<std::string>& headers) {
    const auto promise = std::make_shared<std::promise<HttpReply>>();
    service_.Answer(RequestOf(url, headers),
                    [promise](HttpReply reply) { promise->set_value(std::move(reply)); });
    HttpReply reply = promise->get_future().get();
    return LocalAnswer{reply.status, static_cast<std::int32_t>(reply.retryAfter.count()),
                       std::move(reply.body)};
  });
}

OwnAnswers::~OwnAnswers() {
  SetLocalAnswers({});
}

}  // namespace postwright::service
