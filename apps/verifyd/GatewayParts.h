#ifndef POSTWRIGHT_APPS_VERIFYD_GATEWAYPARTS_H_
#define POSTWRIGHT_APPS_VERIFYD_GATEWAYPARTS_H_

#include <memory>
#include <optional>

#include "apps/verifyd/GatewayOptions.h"
#include "service/LocalSource.h"
#include "service/gateway/AnswerCache.h"
#include "service/gateway/FallbackSource.h"
#include "service/gateway/Gateway.h"
#include "service/http/RequestLog.h"
#include "service/upstream/Clock.h"
#include "service/upstream/Upstream.h"

namespace postwright::service {

// The gateway that the command line asks for, put together: the upstream, the cache before it, and
// the local base after it where it falls back. Without one, the local base alone.
class GatewayParts {
 public:
  // Throws CredentialsError or StoreError where a file cannot be used. Borrows all but the options.
  GatewayParts(const GatewayOptions& options, LocalSource& local, const Clock& clock,
               RequestLog& log);

  AnswerSource& Source();

  // Null where there is none.
  Gateway* GetGateway() { return gateway_ ? &*gateway_ : nullptr; }
  AnswerCache* GetCache() { return cache_ ? &*cache_ : nullptr; }
  FallbackSource* GetFallback() { return fallback_ ? &*fallback_ : nullptr; }

 private:
  LocalSource& local_;
  std::unique_ptr<Upstream> upstream_;
  std::optional<AnswerCache> cache_;
  std::optional<Gateway> gateway_;
  std::optional<FallbackSource> fallback_;
};

}  // namespace postwright::service

#endif  // POSTWRIGHT_APPS_VERIFYD_GATEWAYPARTS_H_
