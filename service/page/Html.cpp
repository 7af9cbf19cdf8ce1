#include "service/page/Html.h"

#include <algorithm>

#include "common/ShownText.h"
#include "common/WideText.h"

namespace postwright::service::html {
namespace {

std::string_view ReferenceOf(char c) {
  switch (c) {
    case '&':
      return "&amp;";
    case '<':
      return "&lt;";
    case '>':
      return "&gt;";
    case '"':
      return "&quot;";
    case '\'':
      return "&#39;";
    default:
      return {};
  }
}

}  // namespace

std::string Text(std::string_view text) {
  std::string shown;
  for (const char c : ShownText(text, "\xEF\xBF\xBD", "\n\t")) {
    const std::string_view reference = ReferenceOf(c);
    reference.empty() ? shown.append(1, c) : shown.append(reference);
  }
  return shown;
}

std::string Text(std::wstring_view text) {
  return Text(Utf8FromAnyWide(text));
}

std::string Marked(std::wstring_view text, const std::vector<Span>& spans,
                   std::string_view element) {
  std::string marked;
  std::size_t done = 0;
  const auto append = [&](std::size_t end) {
    end = std::clamp(end, done, text.size());
    marked += Text(text.substr(done, end - done));
    done = end;
  };
  for (const Span& span : spans) {
    append(span.begin);
    marked.append("<").append(element).append(">");
    append(span.end);
    marked.append("</").append(element).append(">");
  }
  append(text.size());
  return marked;
}

std::string Hidden(std::string_view name, std::string_view value) {
  return "<input type=\"hidden\" name=\"" + std::string(name) + "\" value=\"" + Text(value) + "\">";
}

}  // namespace postwright::service::html
