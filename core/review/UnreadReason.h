#ifndef POSTWRIGHT_CORE_REVIEW_UNREADREASON_H_
#define POSTWRIGHT_CORE_REVIEW_UNREADREASON_H_

#include <postwright/Export.h>

#include <cstdint>
#include <string>
#include <vector>

namespace postwright {

struct LabelPiece;

// Why the parser reads no address in a text. Numbers never change, new ones may come.
enum UnreadCause : std::int32_t {
  UnreadCauseNone = 0,  // the parser reads an address
  UnreadCauseEmpty = 1,
  UnreadCauseForeignCountry = 2,  // the last line names a country other than the United States
  UnreadCauseShortZip = 3,        // four digits, in a state whose ZIP codes begin with 0
  UnreadCauseNoZip = 4,
  UnreadCauseNoState = 5,
  UnreadCauseNumberInWords = 6,  // "Twelve Main St"
  UnreadCauseNoHouseNumber = 7,
  UnreadCauseUnclear = 8,  // all of it is there, and still it is not an address
};

// Says what a label lacks, for a person who is to mend it. A plain value, read from any thread.
//
//   const UnreadReason reason(L"12 Main St\nBoston MA 2108");
//   // reason.GetCode() "zip-short", reason.GetProposal() L"12 Main St\nBoston MA 02108"
class POSTWRIGHT_CORE_EXPORT UnreadReason {
 public:
  // Looks at `text`, a label with any line breaks, in time in proportion to its length. Uses
  // AddressParser::GetInstance(): one thread at a time. Reaches no network and throws nothing but
  // std::bad_alloc.
  explicit UnreadReason(const std::wstring& text);

  UnreadCause GetCause() const { return cause_; }

  // The cause's stable name, for records that programs read: "zip-missing", "zip-short",
  // "state-missing", "number-missing", "number-in-words", "foreign-country", "empty", "unread"; ""
  // where there is none.
  const char* GetCode() const;

  // In English, a sentence or two for a person: what is missing and what to do.
  const char* GetText() const;

  // The text with the fault mended, everything else in it as typed; "" where nobody can tell what
  // the writer meant. Only UnreadCauseShortZip and UnreadCauseNumberInWords have one. To be
  // offered, not to be applied unasked.
  const std::wstring& GetProposal() const { return proposal_; }

 private:
  bool LookAtZip(const std::wstring& text, const std::vector<LabelPiece>& lines);
  void LookAtStreet(const std::wstring& text, const std::vector<LabelPiece>& lines);

  UnreadCause cause_ = UnreadCauseNone;
  std::wstring proposal_;
};

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_REVIEW_UNREADREASON_H_
