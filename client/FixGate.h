#ifndef POSTWRIGHT_CLIENT_FIXGATE_H_
#define POSTWRIGHT_CLIENT_FIXGATE_H_

namespace postwright {

// The engine's door: one fix at a time goes through, however many clients and threads call. All
// fixes of a process share the parser, which keeps its state in members and takes no lock.
//
//   const FixGate::Pass pass;  // waits for its turn
//   auto fixed = Postwright::Fix(...);
//
// Turns are given in the order of asking, so that a batch that asks again and again cannot keep a
// person's single fix waiting for longer than the fix that is under way. Where one thread has asked
// several times (below), its latest question takes that thread's turn: the earlier ones cannot run
// before it has returned.
//
// A thread that waits sleeps, with one exception. The thread of a QGuiApplication handles events
// while it waits, all but user input, so that its windows stay painted and port messages arrive;
// clicks and keys come after the fix. A slot or timer of the host may therefore run inside the
// wait, and may itself ask for a fix. Once the turn has come the thread is the engine's: nothing is
// handled during the fix itself.
class FixGate {
 public:
  // The right to call the engine, from construction to destruction; both on the same thread. A
  // thread must not ask for a second pass while it holds one.
  class Pass {
   public:
    Pass();
    ~Pass();
    Pass(const Pass&) = delete;
    Pass& operator=(const Pass&) = delete;
  };
};

}  // namespace postwright

#endif  // POSTWRIGHT_CLIENT_FIXGATE_H_
