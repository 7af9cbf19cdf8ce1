#ifndef POSTWRIGHT_PYTHON_NATIVE_TEXT_H_
#define POSTWRIGHT_PYTHON_NATIVE_TEXT_H_

#include <pybind11/pybind11.h>

#include <string>
#include <string_view>

namespace postwright::python {

// Between Python's strings and wide ones, code point by code point; half a surrogate pair, which
// both can hold, is one. The interpreter's lock is held.

// Throws TypeError where `text` is not a str.
std::wstring WideOf(pybind11::handle text);

// New references. The second is given UTF-8; what is none in it is U+FFFD.
pybind11::str StrOf(std::wstring_view text);
pybind11::str StrOf(std::string_view text);

}  // namespace postwright::python

#endif  // POSTWRIGHT_PYTHON_NATIVE_TEXT_H_
