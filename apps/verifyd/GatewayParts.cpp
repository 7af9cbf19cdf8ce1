#include "apps/verifyd/GatewayParts.h"

#include <filesystem>

namespace postwright::service {
namespace {

// Makes the folder of a file that is to be created there, for its owner alone.
void MakeFolderOf(const std::filesystem::path& file) {
  const std::filesystem::path folder = file.parent_path();
  std::error_code none;  // opening the file says what is wrong
  if (!folder.empty() && std::filesystem::create_directories(folder, none)) {
    std::filesystem::permissions(folder, std::filesystem::perms::owner_all, none);
  }
}

}  // namespace

GatewayParts::GatewayParts(const GatewayOptions& options, LocalSource& local, const Clock& clock,
                           RequestLog& log)
    : local_(local) {
  if (!options.IsGateway()) {
    return;
  }
  const Zips zips = [&local] { return local.Zips(); };
  upstream_ = options.kind->make({*options.url, options.credentials, zips, clock});
  if (!options.cache.empty()) {
    AnswerCache::Limits limits;
    limits.lifetime = options.lifetime;
    MakeFolderOf(options.cache);
    cache_.emplace(options.cache, upstream_->Name(), clock, limits);
    if (!cache_->Repair().empty()) {
      log.Write(cache_->Repair());
    }
  }
  Gateway::Limits limits;
  limits.deadline = options.deadline;
  gateway_.emplace(*upstream_, zips, Budget(options.budget), GetCache(), clock, limits, log);
  if (options.fallsBack) {
    fallback_.emplace(*gateway_, local_);
  }
}

AnswerSource& GatewayParts::Source() {
  if (fallback_) {
    return *fallback_;
  }
  return gateway_ ? static_cast<AnswerSource&>(*gateway_) : local_;
}

}  // namespace postwright::service
