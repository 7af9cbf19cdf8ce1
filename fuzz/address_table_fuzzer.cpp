// Bytes of a table, into the finder of columns and labels. A table whose addresses are answered
// unchanged keeps every row, and the columns that are added are found again: answered once more, it
// is the same byte for byte.

#include "apps/postwright/stream/Failure.h"
#include "apps/postwright/table/AddressTable.h"
#include "apps/postwright/table/InputKind.h"
#include "fuzz/InputText.h"
#include "fuzz/Require.h"

namespace {

using namespace postwright;
using fuzz::Require;

// Known names, so that the same guess is made again.
constexpr std::string_view kColumns = "name=1,street=2,city=3,state=4,zip=5";

QStringList LabelsOf(const AddressTable& table) {
  QStringList labels;
  table.ReadLabels([&](const QString& label) { labels.append(label); });
  return labels;
}

// The table with an answer for each address; nullopt if a row could not be read.
std::optional<std::string> Answered(const AddressTable& table) {
  bool isWhole = true;
  const QByteArray bytes = table.Rewrite(
      {QStringLiteral("status")},
      [](const LabelColumns&, QStringList&) { return QStringList{QStringLiteral("fixed")}; },
      [&](const std::string&) { isWhole = false; });
  return isWhole ? std::optional(bytes.toStdString()) : std::nullopt;
}

// Puts each label back into its own cells.
void PutBack(const AddressTable& table) {
  table.Rewrite(
      {},
      [](const LabelColumns& columns, QStringList& cells) {
        if (const auto changed = columns.WithLabel(cells, columns.LabelOf(cells))) {
          Require(changed->size() >= cells.size(), "no cell is lost");
          cells = *changed;
        }
        return QStringList();
      },
      [](const std::string&) {});
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::UseCharacterLocale();
  const std::string bytes(fuzz::TextOf(data, size));
  KindOf(bytes);
  for (const std::string_view columns : {std::string_view(), kColumns}) {
    try {
      const AddressTable table(bytes, "table", std::string(columns));
      table.Description();
      const QStringList labels = LabelsOf(table);
      PutBack(table);
      const std::optional<std::string> once = Answered(table);
      if (once && bytes.starts_with("name,street,city,state,zip\n")) {
        const AddressTable again(*once, "table", std::string(columns));
        Require(LabelsOf(again) == labels, "the labels are there again");
        Require(Answered(again) == once, "answered twice it is the same");
      }
    } catch (const Failure& failure) {
      Require(failure.what()[0] != '\0', "a failure says why");
    }
  }
  return 0;
}
