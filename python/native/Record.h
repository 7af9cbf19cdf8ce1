#ifndef POSTWRIGHT_PYTHON_NATIVE_RECORD_H_
#define POSTWRIGHT_PYTHON_NATIVE_RECORD_H_

#include <pybind11/pybind11.h>

#include <initializer_list>
#include <vector>

namespace postwright::python {

// A frozen dataclass of the package, with slots. Objects are made by writing the slots: the
// dataclass's own constructor goes through object.__setattr__ for each, which takes longer than the
// parser takes to read a label.
//
//   const RecordType part(records.attr("Part"));
//   part.New({text, line, begin, end});
class RecordType {
 public:
  explicit RecordType(const pybind11::object& type);

  // Returns a new object with these values, one for each field, in order.
  pybind11::object New(std::initializer_list<pybind11::object> values) const;

  // The same, with the value of field i made by `values(i)`.
  template <typename Values>
  pybind11::object Fill(Values values) const {
    pybind11::object record = Empty();
    bool mayBeInACycle = false;
    for (std::size_t i = 0; i < offsets_.size(); ++i) {
      PyObject* const value = values(i).release().ptr();
      mayBeInACycle = mayBeInACycle || PyObject_IS_GC(value) != 0;
      Slot(record, i) = value;
    }
    if (!mayBeInACycle) {  // as for tuples: saves the collector from scanning long lists in vain
      PyObject_GC_UnTrack(record.ptr());
    }
    return record;
  }

 private:
  pybind11::object Empty() const;
  PyObject*& Slot(const pybind11::object& record, std::size_t field) const {
    return *reinterpret_cast<PyObject**>(reinterpret_cast<char*>(record.ptr()) + offsets_[field]);
  }

  pybind11::object type_;
  std::vector<Py_ssize_t> offsets_;
};

}  // namespace postwright::python

#endif  // POSTWRIGHT_PYTHON_NATIVE_RECORD_H_
