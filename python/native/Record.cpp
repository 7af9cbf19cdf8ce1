#include "python/native/Record.h"

#include <structmember.h>

#include <stdexcept>

namespace py = pybind11;

namespace postwright::python {

RecordType::RecordType(const py::object& type) : type_(type) {
  for (const py::handle field : py::module_::import("dataclasses").attr("fields")(type)) {
    const py::object slot = type.attr(field.attr("name").cast<py::str>());
    if (Py_TYPE(slot.ptr()) != &PyMemberDescr_Type) {
      throw std::logic_error("a record has a field without a slot");
    }
    const PyMemberDef* const member =
        reinterpret_cast<const PyMemberDescrObject*>(slot.ptr())->d_member;
    offsets_.push_back(member->offset);
  }
}

py::object RecordType::Empty() const {
  auto* const type = reinterpret_cast<PyTypeObject*>(type_.ptr());
  PyObject* const record = type->tp_alloc(type, 0);
  if (record == nullptr) {
    throw py::error_already_set();
  }
  return py::reinterpret_steal<py::object>(record);
}

py::object RecordType::New(std::initializer_list<py::object> values) const {
  if (values.size() != offsets_.size()) {
    throw std::logic_error("a record needs one value for each field");
  }
  return Fill([&values](std::size_t i) { return values.begin()[i]; });
}

}  // namespace postwright::python
