#include "service/page/FixView.h"

#include <algorithm>
#include <array>

#include "common/WideText.h"
#include "service/page/Html.h"

namespace postwright::service::fixview {
namespace {

struct StatusWords {
  std::string_view code;
  std::string_view words;
};

constexpr std::array kStatuses = {
    StatusWords{"unchanged", "Unchanged"},       StatusWords{"fixed", "Fixed"},
    StatusWords{"to-decide", "To decide"},       StatusWords{"turned-down", "Turned down"},
    StatusWords{"not-answered", "Not answered"}, StatusWords{"not-asked", "Not asked"},
};

std::string Paragraph(std::string_view kind, const std::string& html) {
  return html.empty() ? "" : "<p class=\"" + std::string(kind) + "\">" + html + "</p>\n";
}

std::string Marked(std::wstring_view text, const CorrectionReview& review,
                   CorrectionPart CorrectionChange::*side, std::string_view element) {
  std::vector<html::Span> spans;
  for (const CorrectionChange& change : review.Changes()) {
    const CorrectionPart& part = change.*side;
    if (part.end > part.begin) {
      spans.push_back({part.begin, part.end});
    }
  }
  std::sort(spans.begin(), spans.end(),
            [](const html::Span& a, const html::Span& b) { return a.begin < b.begin; });
  return html::Marked(text, spans, element);
}

std::string Words(const CorrectionPart& part, std::string_view element) {
  return part.text.empty() ? "<span class=\"none\">nothing</span>"
                           : html::Marked(part.text, {{0, part.text.size()}}, element);
}

// A form that asks about `label` as it is.
std::string AskAbout(std::wstring_view label) {
  return "<form method=\"post\" action=\"/#answer\" class=\"choice\">" +
         html::Hidden("label", Utf8FromAnyWide(label)) + "<pre>" + html::Text(label) +
         "</pre><button>Ask about it</button></form>\n";
}

// The text field for the number or unit that a range leaves open.
std::string Field(std::string_view name, std::string_view title, const std::wstring& low,
                  const std::wstring& high) {
  return "<label>" + std::string(title) + ", " + html::Text(low) + " to " + html::Text(high) +
         " <input name=\"" + std::string(name) +
         "\" required maxlength=\"20\" autocomplete=\"off\"></label>";
}

// A candidate that stands for many addresses: the numbers that are filled in take their places.
std::string AskWithin(const AddressMatch& candidate) {
  const std::wstring open = candidate.ComposeAddressForRechecking(std::wstring(1, kNumberPlace),
                                                                  std::wstring(1, kUnitPlace));
  std::string form = "<form method=\"post\" action=\"/#answer\" class=\"choice\">" +
                     html::Hidden("label", Utf8FromAnyWide(open)) + "<pre>" +
                     html::Text(candidate.GetAddressTemplate(true)) + "</pre>";
  if (candidate.HasPrimaryRange()) {
    form += Field("number", candidate.IsPOBox() ? "Box" : "House number", candidate.GetPrimaryLow(),
                  candidate.GetPrimaryHigh());
  }
  if (candidate.HasSecondaryRange() && !candidate.IsPOBox()) {
    form += Field("unit", "Unit", candidate.GetSecondaryLow(), candidate.GetSecondaryHigh());
  }
  return form + "<button>Ask about it</button></form>\n";
}

std::string Choices(const CarefulFix& fix) {
  std::string choices;
  for (const AddressMatch& candidate : fix.Candidates()) {
    const bool isRange = candidate.HasPrimaryRange() || candidate.HasSecondaryRange();
    choices += "<li>" +
               (isRange ? AskWithin(candidate) : AskAbout(candidate.ComposeAddressBlock(true))) +
               "</li>\n";
  }
  return choices.empty() ? ""
                         : "<h3>What could have been meant</h3>\n<ul class=\"choices\">\n" +
                               choices + "</ul>\n";
}

std::string Sentence(const CarefulFix& fix) {
  switch (fix.Status()) {
    case FixStatus::kUnchanged:
      return fix.IsAsked() ? "The service says the same." : "Left alone: nobody was asked.";
    case FixStatus::kFixed:
      return "Each change is accounted for.";
    case FixStatus::kUndecided:
      return "Not made: look at it first.";
    case FixStatus::kTurnedDown:
      return "No correction is known.";
    case FixStatus::kUnanswered:
      return "Nobody judged the address. Ask again later.";
  }
  return "";
}

}  // namespace

std::string_view WordsOf(std::string_view statusCode) {
  const auto* const found =
      std::find_if(kStatuses.begin(), kStatuses.end(),
                   [statusCode](const StatusWords& each) { return each.code == statusCode; });
  return found == kStatuses.end() ? std::string_view() : found->words;
}

std::string Badge(std::string_view statusCode) {
  return "<span class=\"badge " + std::string(statusCode) + "\">" +
         std::string(WordsOf(statusCode)) + "</span>";
}

std::string Typed(std::wstring_view text, const CorrectionReview& review) {
  return Marked(text, review, &CorrectionChange::typed, "del");
}

std::string Corrected(std::wstring_view text, const CorrectionReview& review) {
  return Marked(text, review, &CorrectionChange::corrected, "ins");
}

std::string Changes(const CorrectionReview& review) {
  std::string items;
  for (const CorrectionChange& change : review.Changes()) {
    items += "<li" + std::string(change.doubt ? " class=\"doubt\"" : "") + "><span>" +
             Words(change.typed, "del") + " <span class=\"to\">becomes</span> " +
             Words(change.corrected, "ins") + "</span> <span class=\"rule\">" +
             html::Text(std::string_view(CorrectionRuleText(change.rule))) + "</span></li>\n";
  }
  return items.empty() ? "" : "<ul class=\"changes\">\n" + items + "</ul>\n";
}

std::string Confirmed(const CarefulFix& fix) {
  std::string text = fix.Confirmed().Text();
  if (!text.empty() && text[0] >= 'a' && text[0] <= 'z') {
    text[0] = static_cast<char>(text[0] - 'a' + 'A');
  }
  const std::string source = fix.Source().Text();
  if (text.empty()) {
    return source.empty() ? "" : "According to " + html::Text(source) + ".";
  }
  return html::Text(text + (source.empty() ? "" : ", according to " + source)) + ".";
}

std::string Answer(std::wstring_view typed, const CarefulFix& fix) {
  const bool isOpen = fix.Status() == FixStatus::kUndecided;
  std::string answer = "<p class=\"verdict\">" + Badge(CodeOf(fix.Status())) + " " + Sentence(fix) +
                       "</p>\n" + Paragraph("reason", html::Text(fix.ReasonText()));
  if (isOpen || fix.Status() == FixStatus::kFixed) {
    const std::wstring& corrected = isOpen ? fix.Proposed() : fix.Text();
    answer += "<div class=\"both\"><div><h3>As typed</h3><pre>" + Typed(typed, fix.Review()) +
              "</pre></div>\n<div><h3>" + std::string(isOpen ? "As proposed" : "As fixed") +
              "</h3><pre id=\"corrected\">" + Corrected(corrected, fix.Review()) +
              "</pre></div></div>\n";
  } else {
    answer += "<pre>" + html::Text(typed) + "</pre>\n";
  }
  answer += Paragraph("confirmed", Confirmed(fix));
  const std::string changes = Changes(fix.Review());
  answer += changes.empty() ? "" : "<h3>Changes</h3>\n" + changes;
  if (!fix.Mended().empty()) {
    answer += "<h3>Was this meant?</h3>\n" + AskAbout(fix.Mended());
  }
  return answer + Choices(fix);
}

}  // namespace postwright::service::fixview
