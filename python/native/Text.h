#ifndef POSTWRIGHT_PYTHON_NATIVE_TEXT_H_
#define POSTWRIGHT_PYTHON_NATIVE_TEXT_H_

#include <pybind11/pybind11.h>

#include <string>
#include <string_view>

namespace postwright::python {

// Between Python strings and wide strings, code point by code point; a lone surrogate, which both
// can hold, counts as one. The interpreter's lock is held.

// Throws TypeError where `text` is not a str.
std::wstring WideOf(pybind11::handle text);

// New references. The second takes UTF-8; bytes that are not valid become U+FFFD.
pybind11::str StrOf(std::wstring_view text);
pybind11::str StrOf(std::string_view text);

}  // namespace postwright::python

#endif  // POSTWRIGHT_PYTHON_NATIVE_TEXT_H_
