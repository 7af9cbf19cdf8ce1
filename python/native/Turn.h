#ifndef POSTWRIGHT_PYTHON_NATIVE_TURN_H_
#define POSTWRIGHT_PYTHON_NATIVE_TURN_H_

#include <pybind11/pybind11.h>

#include "core/label/ParserTurn.h"

namespace postwright::python {

// A turn at the parser, without the interpreter's lock while it is waited for and while it lasts.
//
//   const Turn turn;
//   info = AddressParser::GetInstance()->Parse(label);
//
// Who holds one and wants to touch Python takes the interpreter's lock for that long.
class Turn {
 public:
  // Around a fork, on the thread that forks: the first waits until no turn is taken and holds the
  // others back, the second, in parent and child, lets them go on.
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
