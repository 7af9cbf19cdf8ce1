#ifndef POSTWRIGHT_SERVICE_PAGE_TABLEVIEW_H_
#define POSTWRIGHT_SERVICE_PAGE_TABLEVIEW_H_

#include <string>
#include <string_view>

#include "service/page/TableReview.h"

// How a page shows a table that was reviewed. Pure, for any thread; what is returned is HTML.
namespace postwright::service::tableview {

// The rows alone, the first of which has the number `first`.
std::string Rows(const TableReview& table, size_t first = 1);

// How many there are of each status, the rows, and a form that gives `text`, as it was pasted, back
// as CSV. The script of the page makes them a list to work on.
std::string Answer(const TableReview& table, std::string_view text);

}  // namespace postwright::service::tableview

#endif  // POSTWRIGHT_SERVICE_PAGE_TABLEVIEW_H_
