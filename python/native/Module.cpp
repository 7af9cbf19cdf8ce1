#include <postwright/AddressParser.h>
#include <postwright/Deployment.h>
#include <postwright/FetchTimeout.h>
#include <postwright/LocalAnswers.h>
#include <postwright/LocalService.h>

#include <pybind11/stl.h>
#include <pybind11/stl/filesystem.h>

#include <array>
#include <chrono>
#include <future>
#include <utility>

#include "common/BaseFolders.h"
#include "core/label/CarefulFix.h"
#include "python/native/Record.h"
#include "python/native/Text.h"
#include "python/native/Turn.h"

namespace py = pybind11;

namespace postwright::python {

namespace {

// The package's types; they live as long as the interpreter.
struct Records {
  py::module_ module = py::module_::import("postwright._records");
  RecordType address{module.attr("Address")};
  RecordType part{module.attr("Part")};
  RecordType change{module.attr("Change")};
  RecordType standardAddress{module.attr("StandardAddress")};
  RecordType source{module.attr("Source")};
  RecordType fix{module.attr("Fix")};
  py::object status = module.attr("Status");
  py::object confirmation = module.attr("Confirmation");
  py::object badFile = module.attr("BadFileError");
};

const Records& Types() {
  static const Records* const records = new Records;
  return *records;
}

// Who answers a fix's questions: the service within this process, or one over the network.
struct Service {
  LocalAnswers answers;  // empty for a service over the network
  std::string server;
  std::chrono::milliseconds timeout{0};

  // Makes it the one that the process asks. Within a turn.
  void Use() const {
    SetLocalAnswers(answers);
    if (!answers) {
      SetFetchTimeout(timeout);
      if (Deployment deployment = GetDeployment(); deployment.verifyHost != server) {
        deployment.verifyHost = server;
        SetDeployment(std::move(deployment));
      }
    }
  }
};

Service LocalServiceOf(const std::vector<std::string>& files) {
  try {
    const Turn turn;
    UseLocalService({files.begin(), files.end()});
    return {GetLocalAnswers(), "", {}};
  } catch (const LocalServiceError& failure) {
    PyErr_SetObject(Types().badFile.ptr(), StrOf(std::string_view(failure.what())).ptr());
    throw py::error_already_set();
  }
}

Service ServerOf(const std::string& server, double timeout) {
  return {{}, server, std::chrono::milliseconds(static_cast<std::int64_t>(timeout * 1000))};
}

// --- Reading

py::object RecordOf(const AddressInfo& info) {
  constexpr std::array kFields = {
      &AddressInfo::prefix,        &AddressInfo::number,          &AddressInfo::predirectional,
      &AddressInfo::street,        &AddressInfo::streetSuffix,    &AddressInfo::postdirectional,
      &AddressInfo::secondaryUnit, &AddressInfo::secondaryNumber, &AddressInfo::streetLine,
      &AddressInfo::city,          &AddressInfo::state,           &AddressInfo::zip,
      &AddressInfo::suffix,
  };
  if (info.zip.empty() && info == AddressInfo()) {
    return py::none();
  }
  return Types().address.Fill([&](std::size_t i) { return StrOf(info.*kFields[i]); });
}

py::object Parse(py::handle text) {
  const std::wstring label = WideOf(text);
  AddressInfo info;
  {
    const Turn turn;
    info = AddressParser::GetInstance()->Parse(label);
  }
  return RecordOf(info);
}

// A few labels at a time, so that the interpreter's lock and the parser are not taken anew for each
// one, and the labels stay in the processor's cache.
py::list ParseList(const py::list& texts) {
  py::list records(texts.size());
  constexpr std::size_t kAtOnce = 64;
  std::vector<std::wstring> labels;
  std::vector<AddressInfo> infos;
  for (std::size_t begin = 0; begin < texts.size(); begin += kAtOnce) {
    const std::size_t end = std::min(begin + kAtOnce, texts.size());
    labels.clear();
    infos.clear();
    for (std::size_t i = begin; i < end; ++i) {
      labels.push_back(WideOf(texts[i]));
    }
    {
      const Turn turn;
      for (const std::wstring& label : labels) {
        infos.push_back(AddressParser::GetInstance()->Parse(label));
      }
    }
    for (std::size_t i = 0; i < infos.size(); ++i) {
      records[begin + i] = RecordOf(infos[i]);
    }
    if (PyErr_CheckSignals() != 0) {
      throw py::error_already_set();
    }
  }
  return records;
}

// --- Explaining

py::object RecordOf(const CorrectionPart& part) {
  return Types().part.New(
      {StrOf(part.text), py::int_(part.line), py::int_(part.begin), py::int_(part.end)});
}

py::tuple RecordsOf(const CorrectionReview& review) {
  py::tuple changes(review.Changes().size());
  for (std::size_t i = 0; i < changes.size(); ++i) {
    const CorrectionChange& change = review.Changes()[i];
    changes[i] = Types().change.New({py::str(CorrectionRuleCode(change.rule)),
                                     py::str(CorrectionRuleText(change.rule)),
                                     RecordOf(change.typed), RecordOf(change.corrected),
                                     py::bool_(change.doubt), StrOf(change.reason)});
  }
  return changes;
}

py::tuple Explain(py::handle typed, py::handle corrected, const std::string& footnotes) {
  const std::wstring before = WideOf(typed);
  const std::wstring after = WideOf(corrected);
  CorrectionReview review;
  {
    const py::gil_scoped_release released;
    review = CorrectionReview(before, after, footnotes);
  }
  return RecordsOf(review);
}

// --- Correcting

CarefulFix FixInTurn(const std::wstring& label, const Service& service,
                     const CarefulFix::Asking& asking, const std::atomic<bool>* abandoned) {
  const Utf8Locale locale;  // this may not be the thread that has the turn
  service.Use();
  return CarefulFix(label, asking, abandoned);
}

// A service over the network can take minutes, and an interrupt must be noticed meanwhile: the fix
// runs on a thread of its own, and an interrupt abandons it.
CarefulFix FixInterruptibly(const std::wstring& label, const Service& service,
                            const CarefulFix::Asking& asking) {
  constexpr std::chrono::milliseconds kSignalCheck(50);
  std::atomic<bool> abandoned = false;
  bool isInterrupted = false;
  std::optional<CarefulFix> fix;
  {
    const Turn turn;
    std::future<CarefulFix> asked = std::async(std::launch::async, FixInTurn, std::cref(label),
                                               std::cref(service), std::cref(asking), &abandoned);
    while (!isInterrupted && asked.wait_for(kSignalCheck) == std::future_status::timeout) {
      const py::gil_scoped_acquire held;
      isInterrupted = PyErr_CheckSignals() != 0;
      abandoned = isInterrupted;
    }
    fix.emplace(asked.get());
  }
  if (isInterrupted) {
    throw py::error_already_set();
  }
  return std::move(*fix);
}

py::object RecordOf(const CarefulFix& fix, const py::object& label) {
  const std::optional<AddressFields>& address = fix.Address();
  const VerifySource& source = fix.Source();
  return Types().fix.New(
      {label, Types().status(static_cast<std::int32_t>(fix.Status())),
       fix.Status() == FixStatus::kFixed ? py::object(StrOf(fix.Text())) : label,
       StrOf(fix.Proposed()), StrOf(fix.Mended()), Types().confirmation(fix.Confirmed().Code()),
       py::str(fix.Confirmed().Text()), StrOf(fix.Reason()), StrOf(fix.ReasonText()),
       RecordsOf(fix.Review()),
       address
           ? Types().standardAddress.New(
                 {StrOf(address->GetPrimaryStreet()), StrOf(address->GetSecondaryStreet()),
                  StrOf(address->GetCity()), StrOf(address->GetState()), StrOf(address->GetZip())})
           : py::none(),
       source.kind == VerifySourceUntold
           ? py::none()
           : Types().source.New({py::str(source.Code()), StrOf(source.name), StrOf(source.date),
                                 StrOf(source.Text())}),
       py::bool_(fix.IsAsked()), py::int_(fix.RetryAfter())});
}

// With `interruptible`, an interrupt ends the wait for a service over the network.
py::object Fix(const py::object& text, const Service& service, const CarefulFix::Asking& asking,
               bool interruptible) {
  const std::wstring label = WideOf(text);
  std::optional<CarefulFix> fix;
  if (interruptible && !service.answers) {
    fix.emplace(FixInterruptibly(label, service, asking));
  } else {
    const Turn turn;
    fix.emplace(FixInTurn(label, service, asking, nullptr));
  }
  return RecordOf(*fix, text);
}

}  // namespace

PYBIND11_MODULE(_native, module) {
  ParserTurn::Prepare();
  Types();
  py::module_::import("os").attr("register_at_fork")(
      py::arg("before") = py::cpp_function(Turn::HoldBack),
      py::arg("after_in_parent") = py::cpp_function(Turn::LetGo),
      py::arg("after_in_child") = py::cpp_function(Turn::LetGo));
  const py::class_<Service> service(module, "Service");
  py::class_<CarefulFix::Asking>(module, "Asking")
      .def(py::init([](bool wholeLabel, bool keepPunctuation, bool acceptDoubtful) {
             return CarefulFix::Asking{wholeLabel, keepPunctuation, acceptDoubtful};
           }),
           py::kw_only(), py::arg("whole_label"), py::arg("keep_punctuation"),
           py::arg("accept_doubtful"));
  module.def("find_bases", FindBases);
  module.def("local_service", LocalServiceOf);
  module.def("server", ServerOf);
  module.def("parse", Parse);
  module.def("parse_list", ParseList);
  module.def("explain", Explain);
  module.def("fix", Fix, py::arg("text"), py::arg("service"), py::arg("asking"),
             py::arg("interruptible"));
}

}  // namespace postwright::python
