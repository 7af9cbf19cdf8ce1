#include "sql/label/SqlLabel.h"

#include <postwright/AddressFields.h>
#include <postwright/AddressInfo.h>
#include <postwright/AddressParser.h>
#include <postwright/LocalService.h>

#include <algorithm>
#include <mutex>
#include <utility>

#include "common/WideText.h"
#include "core/label/CarefulFix.h"
#include "core/label/ParserTurn.h"
#include "sql/label/ModulePlace.h"

namespace postwright::sql {

namespace {

constexpr std::size_t kLongest = std::size_t{16} << 20U;

std::wstring WideLabel(std::string_view label) {
  if (label.size() > kLongest) {
    throw LabelError("a label has at most 16 MiB");
  }
  try {
    return WideFromUtf8(label);
  } catch (const boost::locale::conv::conversion_error&) {
    throw LabelError("the label is not valid UTF-8");
  }
}

// Puts the host's own answers back at the end: the host may use the library too.
class OwnAnswers {
 public:
  explicit OwnAnswers(const LocalAnswers& answers) : before_(GetLocalAnswers()) {
    SetLocalAnswers(answers);
  }
  ~OwnAnswers() { SetLocalAnswers(std::move(before_)); }
  OwnAnswers(const OwnAnswers&) = delete;
  OwnAnswers& operator=(const OwnAnswers&) = delete;

 private:
  LocalAnswers before_;
};

}  // namespace

void PrepareParser() {
  static std::once_flag once;
  std::call_once(once, ParserTurn::Prepare);
}

std::optional<ParsedLabel> ParseLabel(std::string_view label) {
  const std::wstring text = WideLabel(label);
  PrepareParser();
  AddressInfo info;
  {
    const ParserTurn turn;
    info = AddressParser::GetInstance()->Parse(text);
  }
  if (info == AddressInfo()) {
    return std::nullopt;
  }
  ParsedLabel parsed;
  std::transform(kParsedFields.begin(), kParsedFields.end(), parsed.begin(),
                 [&info](const ParsedField& field) { return Utf8FromAnyWide(info.*field.value); });
  return parsed;
}

LabelFixer::LabelFixer(const std::vector<std::filesystem::path>& bases) {
  PrepareParser();
  std::vector<std::filesystem::path> files = {DefaultZips()};
  files.insert(files.end(), bases.begin(), bases.end());
  const ParserTurn turn;
  const OwnAnswers kept(GetLocalAnswers());
  UseLocalService(files);
  answers_ = GetLocalAnswers();
}

FixedLabel LabelFixer::Fix(std::string_view label) const {
  const std::wstring text = WideLabel(label);
  std::optional<CarefulFix> fix;
  {
    const ParserTurn turn;
    const OwnAnswers own(answers_);
    fix.emplace(text, CarefulFix::Asking{}, nullptr);
  }
  const AddressFields address = fix->Address().value_or(AddressFields());
  const bool isFixed = fix->Status() == FixStatus::kFixed;
  return {std::string(CodeOf(fix->Status())),
          isFixed ? Utf8FromAnyWide(fix->Text()) : std::string(label),
          Utf8FromAnyWide(fix->Proposed()),
          Utf8FromAnyWide(fix->Mended()),
          fix->Confirmed().Code(),
          fix->Reason(),
          fix->ReasonText(),
          Utf8FromAnyWide(address.GetPrimaryStreet()),
          Utf8FromAnyWide(address.GetSecondaryStreet()),
          Utf8FromAnyWide(address.GetCity()),
          Utf8FromAnyWide(address.GetState()),
          Utf8FromAnyWide(address.GetZip())};
}

}  // namespace postwright::sql
