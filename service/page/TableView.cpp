#include "service/page/TableView.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "common/WideText.h"
#include "service/page/FixView.h"
#include "service/page/Html.h"

namespace postwright::service::tableview {
namespace {

// An attribute that the script reads as JSON.
template <typename Value>
std::string Data(std::string_view name, const Value& value) {
  const std::string json =
      nlohmann::json(value).dump(-1, ' ', true, nlohmann::json::error_handler_t::replace);
  return " data-" + std::string(name) + "=\"" + html::Text(json) + "\"";
}

// The first cell with a text that is not part of the address: mostly a name.
std::string NameOf(const TableReview& table, const RowReview& row) {
  if (row.Typed().empty()) {
    return "";  // the row is shown by its first cell
  }
  const std::vector<size_t>& places = table.Columns().Places();
  for (size_t i = 0; i < row.Cells().size(); ++i) {
    if (std::count(places.begin(), places.end(), i) == 0 && !row.Cells()[i].empty()) {
      return "<span class=\"name\">" + html::Text(row.Cells()[i]) + "</span>";
    }
  }
  return "";
}

std::string TypedText(const RowReview& row) {
  return row.Typed().empty() && !row.Cells().empty() ? html::Text(row.Cells()[0])
                                                     : fixview::Typed(row.Typed(), row.Review());
}

// What could have been meant. The script makes a button of those that have cells.
std::string Choices(const RowReview& row) {
  std::string choices;
  for (const RowReview::Choice& choice : row.Choices()) {
    choices += "<li" + (choice.cells ? Data("made", *choice.cells) : "") + "><pre>" +
               html::Text(choice.text) + "</pre></li>\n";
  }
  return choices.empty() ? ""
                         : "<details class=\"meant\"><summary>What could have been meant: " +
                               std::to_string(row.Choices().size()) +
                               "</summary><ul class=\"choices\">\n" + choices + "</ul></details>";
}

std::string Row(const TableReview& table, const RowReview& row, size_t number) {
  const std::string status(row.Status());
  std::string item =
      "<li data-status=\"" + status + "\"" + Data("cells", row.Cells()) +
      (row.Made() ? Data("made", *row.Made()) : "") + Data("added", row.Added()) +
      ">\n<span class=\"number\">" + std::to_string(number) + "</span>" + "<div class=\"typed\">" +
      NameOf(table, row) + "<pre>" + TypedText(row) + "</pre></div>\n<div class=\"made\"><pre>" +
      fixview::Corrected(row.Corrected(), row.Review()) + "</pre></div>\n<div class=\"about\"><p>" +
      fixview::Badge(row.Status()) + "</p>";
  if (!row.ReasonText().empty()) {
    item += "<p class=\"reason\">" + html::Text(row.ReasonText()) + "</p>";
  }
  const std::string more =
      (row.ConfirmedHtml().empty() ? "" : "<p>" + row.ConfirmedHtml() + "</p>") +
      fixview::Changes(row.Review());
  if (!more.empty()) {
    const size_t changes = row.Review().Changes().size();
    item += "<details><summary>" +
            (changes == 0 ? "Confirmation"
                          : std::to_string(changes) + (changes == 1 ? " change" : " changes")) +
            "</summary>" + more + "</details>";
  }
  return item + Choices(row) + "</div></li>\n";
}

std::string Counts(const TableReview& table) {
  std::string counts;
  for (const std::string_view status :
       {"unchanged", "fixed", "to-decide", "turned-down", "not-answered", "not-asked"}) {
    const auto count =
        std::count_if(table.Rows().begin(), table.Rows().end(),
                      [status](const RowReview& row) { return row.Status() == status; });
    if (count > 0) {
      counts += "<li data-of=\"" + std::string(status) + "\">" + fixview::Badge(status) + " " +
                std::to_string(count) + "</li>\n";
    }
  }
  return "<ul class=\"counts\">\n" + counts + "</ul>\n";
}

}  // namespace

std::string Rows(const TableReview& table, size_t first) {
  std::string rows;
  for (const RowReview& row : table.Rows()) {
    rows += Row(table, row, first++);
  }
  return rows;
}

std::string Answer(const TableReview& table, std::string_view text) {
  if (!table.Problem().empty()) {
    return "<p class=\"problem\" role=\"alert\">" + html::Text(table.Problem()) + "</p>\n";
  }
  return "<div id=\"review\"" + Data("titles", table.Titles()) +
         Data("places", table.Columns().Places()) + ">\n" + Counts(table) +
         "<div class=\"tools\"><form method=\"post\" action=\"/\" id=\"save\">" +
         html::Hidden("as", "csv") + html::Hidden("table", text) +
         "<button>Save as CSV</button></form></div>\n"
         "<p class=\"heads\" aria-hidden=\"true\"><span></span><span>As typed</span>"
         "<span>As fixed</span><span>Status</span></p>\n<ol class=\"rows\">\n" +
         Rows(table) + "</ol>\n</div>\n";
}

}  // namespace postwright::service::tableview
