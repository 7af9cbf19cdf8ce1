#ifndef POSTWRIGHT_PYTHON_NATIVE_RECORD_H_
#define POSTWRIGHT_PYTHON_NATIVE_RECORD_H_

#include <pybind11/pybind11.h>

#include <initializer_list>
#include <vector>

namespace postwright::python {

// A dataclass of the package, frozen and with slots, of which objects are made by writing the
// slots. Its own constructor writes each through object.__setattr__, which takes longer than the
// parser does to read a label.
//
//   const RecordType part(records.attr("Part"));
//   part.New({text, line, begin, end});
class RecordType {
 public:
  explicit RecordType(const pybind11::object& type);

  // A new object with these values, one for each field, in their order.
  pybind11::object New(std::initializer_list<pybind11::object> values) const;

  // The same for values that are made one by one: `values(i)` gives that of field i.
  template <typename Values>
  pybind11::object Fill(Values values) const {
    pybind11::object record = Empty();
    bool mayBeInACycle = false;
    for (std::size_t i = 0; i < offsets_.size(); ++i) {
      PyObject* const value = values(i).release().ptr();
      mayBeInACycle = mayBeInACycle || PyObject_IS_GC(value) != 0;
      Slot(record, i) = value;
    }
    if (!mayBeInACycle) {  // as with tuples: the collector would look through long lists in vain
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
