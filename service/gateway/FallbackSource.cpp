#include "service/gateway/FallbackSource.h"

#include <utility>

namespace postwright::service {
namespace {

// Leaves of an answer what is true of an address that nobody has confirmed.
ReplyFields LeaveUnconfirmed(ReplyFields fields, const std::string& askedAddOn) {
  if (fields.zip4 != askedAddOn) {
    fields.zip4.clear();
  }
  for (const ReplyField& field : kReplyFields) {
    if (field.unconfirmed != Unconfirmed::Stays) {
      fields.*field.member = field.unconfirmed == Unconfirmed::No ? "N" : "";
    }
  }
  return fields;
}

}  // namespace

void FallbackSource::Find(const RequestAddress& asked, const std::string& asker, Done done) {
  first_.Find(asked, asker, [this, asked, asker, done](AddressAnswer answer) {
    if (!std::holds_alternative<ServiceFault>(answer)) {
      return done(std::move(answer));
    }
    ++count_;
    second_.Find(asked, asker, [done, addOn = asked.AddOn()](AddressAnswer local) {
      if (auto* const fields = std::get_if<ReplyFields>(&local)) {
        *fields = LeaveUnconfirmed(std::move(*fields), addOn);
      }
      done(std::move(local));
    });
  });
}

void FallbackSource::Stop() {
  first_.Stop();
  second_.Stop();
}

}  // namespace postwright::service
