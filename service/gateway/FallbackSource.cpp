#include "service/gateway/FallbackSource.h"

#include <utility>

namespace postwright::service {
namespace {

// Leaves of an answer what is true of an address that nobody has confirmed.
ReplyFields Unconfirmed(ReplyFields fields, const std::string& askedAddOn) {
  if (fields.zip4 != askedAddOn) {
    fields.zip4.clear();
  }
  for (const auto field :
       {&ReplyFields::deliveryPoint, &ReplyFields::returnText, &ReplyFields::carrierRoute,
        &ReplyFields::dpvCmra, &ReplyFields::dpvFootnotes, &ReplyFields::business,
        &ReplyFields::vacant}) {
    (fields.*field).clear();
  }
  fields.dpvConfirmation = 'N';
  fields.dpvFalse = 'N';
  fields.centralDeliveryPoint = 'N';
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
      auto* const fields = std::get_if<ReplyFields>(&local);
      done(fields == nullptr ? std::move(local)
                             : AddressAnswer(Unconfirmed(std::move(*fields), addOn)));
    });
  });
}

void FallbackSource::Stop() {
  first_.Stop();
  second_.Stop();
}

}  // namespace postwright::service
