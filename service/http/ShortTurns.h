#ifndef POSTWRIGHT_SERVICE_HTTP_SHORTTURNS_H_
#define POSTWRIGHT_SERVICE_HTTP_SHORTTURNS_H_

namespace postwright::service {

// Lets the threads of a busy server that share a processor, with each other or with a client, take
// turns of half a millisecond. The system on its own would change them when its clock ticks, every
// 4 ms, and the connections of those that wait would be as late.
//
// Made before the threads are started: it holds for them and for the thread that makes it. Before
// Linux 6.12 the system keeps its own turns, which a thread still gives up early; where a sandbox
// forbids to ask for shorter ones, nothing is done.
class ShortTurns {
 public:
  ShortTurns();

  // Called by each thread when it has answered: gives the processor up if its turn is over.
  void Answered() const;

 private:
  bool areShort_;
};

}  // namespace postwright::service

#endif  // POSTWRIGHT_SERVICE_HTTP_SHORTTURNS_H_
