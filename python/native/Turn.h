#ifndef POSTWRIGHT_PYTHON_NATIVE_TURN_H_
#define POSTWRIGHT_PYTHON_NATIVE_TURN_H_

#include <pybind11/pybind11.h>

#include "core/label/ParserTurn.h"

namespace postwright::python {

// A turn at the parser. The interpreter's lock is released while the turn is waited for and held.
//
//   const Turn turn;
//   info = AddressParser::GetInstance()->Parse(label);
//
// Code that touches Python within a turn must take the interpreter's lock for that.
class Turn {
 public:
  // Around a fork, on the thread that forks: the first waits until no turn is held and keeps others
  // from starting one; the second, in parent and child, lets them go on.
  static void HoldBack() {
    const pybind11::gil_scoped_release released;
    ParserTurn::Mutex().lock();
  }
  static void LetGo() { ParserTurn::Mutex().unlock(); }

 private:
  pybind11::gil_scoped_release released_;
  ParserTurn turn_;
};

}  // namespace postwright::python

#endif  // POSTWRIGHT_PYTHON_NATIVE_TURN_H_
