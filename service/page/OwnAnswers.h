#ifndef POSTWRIGHT_SERVICE_PAGE_OWNANSWERS_H_
#define POSTWRIGHT_SERVICE_PAGE_OWNANSWERS_H_

#include "service/AnswerSource.h"
#include "service/VerifyService.h"

namespace postwright::service {

// Has the fixes of this process answered by what its server answers from, without a connection; for
// as long as the object lives. Borrows the source.
class OwnAnswers {
 public:
  explicit OwnAnswers(AnswerSource& source);
  ~OwnAnswers();
  OwnAnswers(const OwnAnswers&) = delete;
  OwnAnswers& operator=(const OwnAnswers&) = delete;

  const TrafficCounts& Counts() const { return service_.Counts(); }

 private:
  VerifyService service_;
};

}  // namespace postwright::service

#endif  // POSTWRIGHT_SERVICE_PAGE_OWNANSWERS_H_
