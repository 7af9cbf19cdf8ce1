#include "service/page/PageFrame.h"

#include <charconv>
#include <utility>

#include "service/page/Html.h"
#include "service/page/PageAssets.h"

namespace postwright::service {
namespace {

// An envelope, as the tab's sign.
constexpr std::string_view kIcon =
    "data:image/svg+xml,%3Csvg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 16 16'%3E%3Crect "
    "y='3' width='16' height='11' rx='2' fill='%231c6aa8'/%3E%3Cpath d='m2 5 6 5 6-5' fill='none' "
    "stroke='%23fff' stroke-width='1.5'/%3E%3C/svg%3E";

// The base64 form (RFC 4648, section 4) of a SHA-256, 32 bytes, given in hexadecimal digits.
std::string Base64(std::string_view hexadecimal) {
  constexpr std::string_view kLetters =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string text;
  unsigned bits = 0;
  unsigned count = 0;
  for (const char& digit : hexadecimal) {
    unsigned value = 0;
    std::from_chars(&digit, &digit + 1, value, 16);
    bits = bits << 4 | value;
    count += 4;
    if (count >= 6) {
      count -= 6;
      text += kLetters[bits >> count & 63];
    }
  }
  return count == 0 ? text : text + kLetters[bits << (6 - count) & 63] + "=";
}

std::vector<std::pair<std::string, std::string>> SafeFields() {
  static const std::string policy =
      "default-src 'none'; script-src 'sha256-" + Base64(kPageScriptHash) +
      "'; style-src 'sha256-" + Base64(kPageStyleHash) +
      "'; img-src data:; connect-src 'self'; form-action 'self'; base-uri 'none'; "
      "frame-ancestors 'none'";
  return {{"Content-Security-Policy", policy},
          {"X-Content-Type-Options", "nosniff"},
          {"X-Frame-Options", "DENY"},
          {"Referrer-Policy", "same-origin"},
          {"Cross-Origin-Opener-Policy", "same-origin"},
          {"Cross-Origin-Resource-Policy", "same-origin"},
          {"Cache-Control", "no-store"}};
}

// What was asked, below its form; the form's target, so that it is what is seen first.
std::string AnswerBox(std::string_view id, std::string_view title, const std::string& answer) {
  return answer.empty() ? ""
                        : "<div class=\"answer\" id=\"" + std::string(id) +
                              "\" tabindex=\"-1\" aria-label=\"" + std::string(title) +
                              "\" role=\"group\">\n" + answer + "</div>\n";
}

std::string LabelSection(const PageParts& parts) {
  return "<section aria-labelledby=\"one\">\n<h2 id=\"one\">One label</h2>\n"
         "<form method=\"post\" action=\"/#answer\">\n"
         "<p class=\"hint\" id=\"label-hint\">The whole text of a label, with its name. Lines that "
         "are not part of the address stay as they are.</p>\n"
         "<textarea name=\"label\" rows=\"5\" aria-label=\"Label\" aria-describedby=\"label-hint\" "
         "autocomplete=\"off\" spellcheck=\"false\" required placeholder=\"Jane Doe&#10;12 north "
         "main street apartment 4&#10;austin, texas 78701\">\n" +
         html::Text(parts.label) +
         "</textarea>\n<div class=\"actions\"><button class=\"first\">Correct</button></div>\n"
         "</form>\n" +
         AnswerBox("answer", "Answer", parts.labelAnswer) + "</section>\n";
}

std::string TableSection(const PageParts& parts) {
  return "<section aria-labelledby=\"many\">\n<h2 id=\"many\">A table</h2>\n"
         "<form method=\"post\" action=\"/#rows\">\n"
         "<p class=\"hint\" id=\"table-hint\">Up to 1,000 rows, pasted from a spreadsheet or a CSV "
         "file. The first row names the columns: street, unit, city, state, ZIP; or address for "
         "all "
         "in one. Without names, a label a row.</p>\n"
         "<textarea name=\"table\" rows=\"6\" aria-label=\"Table\" aria-describedby=\"table-hint\" "
         "autocomplete=\"off\" spellcheck=\"false\" required "
         "placeholder=\"name,street,city,state,zip&#10;Jane Doe,12 north main "
         "street,austin,texas,78701\">\n" +
         html::Text(parts.table) +
         "</textarea>\n<div class=\"actions\"><button class=\"first\">Review</button>"
         "<button name=\"as\" value=\"csv\">Correct and save as CSV</button></div>\n</form>\n"
         "<p id=\"news\" class=\"hint\" role=\"status\"></p>\n" +
         AnswerBox("rows", "Rows", parts.tableAnswer) + "</section>\n";
}

}  // namespace

HttpReply ReplyWithPage(int status, const PageParts& parts, std::string note) {
  std::string page =
      "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
      "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
      "<title>Postwright</title>\n<link rel=\"icon\" href=\"" +
      std::string(kIcon) + "\">\n<style>";
  page.append(kPageStyle).append("</style>\n</head>\n<body>\n<header><h1>Postwright</h1>\n");
  page += "<nav aria-label=\"Page\"><a href=\"#one\">Label</a> <a href=\"#many\">Table</a>";
  page += parts.state.empty() ? "" : " <a href=\"#state\">State</a>";
  page += "</nav></header>\n<main>\n" + LabelSection(parts) + TableSection(parts) + parts.state +
          "</main>\n<footer><p>postwright-verifyd " + html::Text(parts.version) +
          ". This page keeps no label and no table, and no page of another site can ask "
          "through it.</p></footer>\n<script>";
  page.append(kPageScript).append("</script>\n</body>\n</html>\n");
  return {status,          "text/html; charset=utf-8", std::move(page),
          std::move(note), std::chrono::seconds(0),    SafeFields()};
}

HttpReply ReplyWithPiece(std::string type, std::string body, std::string note) {
  HttpReply reply = {
      200,         std::move(type), std::move(body), std::move(note), std::chrono::seconds(0),
      SafeFields()};
  if (reply.contentType.starts_with("text/csv")) {
    reply.fields.emplace_back("Content-Disposition", "attachment; filename=\"corrected.csv\"");
  }
  return reply;
}

}  // namespace postwright::service
