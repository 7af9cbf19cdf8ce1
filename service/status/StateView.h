#ifndef POSTWRIGHT_SERVICE_STATUS_STATEVIEW_H_
#define POSTWRIGHT_SERVICE_STATUS_STATEVIEW_H_

#include <string>

#include "service/LocalSource.h"
#include "service/status/StatusPages.h"

namespace postwright::service {

// The part of the page for people that is for the operator: what the service answers from and what
// it has answered, its cache and its budget, with small charts. What /metrics counts, to look at.
//
//   const StateView state(sources, local);
//   PeoplePage page(source, "1.0", access, [&state] { return state.Section(); });
//
// Holds nothing that a client wrote. Borrows both. Any thread.
class StateView {
 public:
  StateView(const StatusPages::Sources& sources, const LocalSource& local)
      : sources_(sources), local_(local) {}

  // As it is now, HTML.
  std::string Section() const;

 private:
  std::string Base() const;
  std::string Traffic() const;
  std::string Upstream() const;
  std::string Cache() const;

  const StatusPages::Sources sources_;
  const LocalSource& local_;
};

}  // namespace postwright::service

#endif  // POSTWRIGHT_SERVICE_STATUS_STATEVIEW_H_
