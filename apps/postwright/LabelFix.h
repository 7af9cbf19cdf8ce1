#ifndef POSTWRIGHT_APPS_POSTWRIGHT_LABELFIX_H_
#define POSTWRIGHT_APPS_POSTWRIGHT_LABELFIX_H_

#include <postwright/BatchResultRecord.h>
#include <postwright/PostwrightClient.h>

#include <string>

namespace postwright {

// What came of one label: asked about with its address lines, the others kept as they were typed,
// or not asked about where it is left alone.
class LabelFix {
 public:
  // Asks through `client`, once at the most, and blocks as its fixAddress() does. With `wholeLabel`
  // the whole text is asked about, and corrected as a whole.
  LabelFix(const std::wstring& label, bool wholeLabel, PostwrightClient& client);

  // As in a batch: of a label that is left alone, status 0 and the text as typed.
  const BatchResultRecord::Values& Values() const { return values_; }

  // The corrected text, its address in the form that was asked for also where nothing else changed;
  // the text as typed where it was left alone, and "" where the fix failed.
  const std::wstring& Text() const { return text_; }

  // A code: why the label was left alone, or why nothing was read in it; "" for neither.
  const std::string& Reason() const { return reason_; }

  // The same in English, behind the message of the failure where there is one.
  const std::string& Explanation() const { return explanation_; }

 private:
  void Explain(const std::wstring& label);

  BatchResultRecord::Values values_;
  std::wstring text_;
  std::string reason_;
  std::string explanation_;
};

}  // namespace postwright

#endif  // POSTWRIGHT_APPS_POSTWRIGHT_LABELFIX_H_
