#include "python/native/Text.h"

#include <algorithm>

namespace py = pybind11;

namespace postwright::python {

static_assert(sizeof(wchar_t) == sizeof(Py_UCS4));

std::wstring WideOf(py::handle text) {
  if (!PyUnicode_Check(text.ptr())) {
    throw py::type_error(std::string("a label is a str, not ") + Py_TYPE(text.ptr())->tp_name);
  }
  if (PyUnicode_READY(text.ptr()) != 0) {
    throw py::error_already_set();
  }
  const auto length = static_cast<std::size_t>(PyUnicode_GET_LENGTH(text.ptr()));
  const void* const data = PyUnicode_DATA(text.ptr());
  const auto widened = [length](const auto* characters) {
    return std::wstring(characters, characters + length);
  };
  switch (PyUnicode_KIND(text.ptr())) {
    case PyUnicode_1BYTE_KIND:
      return widened(static_cast<const Py_UCS1*>(data));
    case PyUnicode_2BYTE_KIND:
      return widened(static_cast<const Py_UCS2*>(data));
    default:
      return widened(static_cast<const Py_UCS4*>(data));
  }
}

py::str StrOf(std::wstring_view text) {
  const auto length = static_cast<Py_ssize_t>(text.size());
  PyObject* made = nullptr;
  wchar_t all = 0;
  for (const wchar_t c : text) {
    all |= c;
  }
  if (all >= 0 && all < 0x80) {
    made = PyUnicode_New(length, 0x7F);
    if (made != nullptr) {
      std::copy(text.begin(), text.end(), PyUnicode_1BYTE_DATA(made));
    }
  } else {
    made = PyUnicode_FromKindAndData(PyUnicode_4BYTE_KIND, text.data(), length);
  }
  if (made == nullptr) {
    throw py::error_already_set();
  }
  return py::reinterpret_steal<py::str>(made);
}

py::str StrOf(std::string_view text) {
  PyObject* const made =
      PyUnicode_DecodeUTF8(text.data(), static_cast<Py_ssize_t>(text.size()), "replace");
  if (made == nullptr) {
    throw py::error_already_set();
  }
  return py::reinterpret_steal<py::str>(made);
}

}  // namespace postwright::python
