#include "apps/postwright/table/AddressTable.h"

#include <QRegularExpression>
#include <algorithm>
#include <utility>

#include "apps/postwright/stream/Failure.h"
#include "apps/tables/CsvWriter.h"
#include "apps/tables/FileError.h"
#include "apps/tables/TableGuess.h"
#include "core/label/FixStatus.h"

namespace postwright {

namespace {

// What the names of added columns begin with.
constexpr QLatin1String kOwn("postwright_");

// The added columns of all addresses of a row: "postwright_status", "postwright_home_status".
QStringList NamesOfAdded(const QStringList& added, const QList<LabelColumns>& addresses) {
  QStringList names;
  for (const LabelColumns& address : addresses) {
    const QString kind = address.Kind().isEmpty() ? QString() : address.Kind() + QLatin1Char('_');
    for (const QString& name : added) {
      names.append(kOwn + kind + name);
    }
  }
  return names;
}

bool IsStatus(const QString& title) {
  return title.endsWith(u"_status");
}

bool IsZip(const QString& title) {
  return title.endsWith(u"_zip");
}

// Whether an earlier run can have written the cell, which is not empty.
bool CanBeOwn(const QString& title, const QString& cell) {
  if (IsZip(title)) {
    static const QRegularExpression form(QStringLiteral(R"(^\d{5}(-?\d{4})?$)"));
    return form.match(cell).hasMatch();
  }
  const std::string code = cell.toStdString();
  return !IsStatus(title) || code == kNotAsked ||
         std::find(kFixStatusCodes.begin(), kFixStatusCodes.end(), code) != kFixStatusCodes.end();
}

// Where each of `names` stands among `titles`, which it is added to where it does not.
QList<int> PlacesOf(const QStringList& names, QStringList& titles) {
  QList<int> places;
  for (const QString& name : names) {
    if (!titles.contains(name)) {
      titles.append(name);
    }
    places.append(static_cast<int>(titles.indexOf(name)));
  }
  return places;
}

}  // namespace

AddressTable::AddressTable(const std::string& bytes, std::string name, const std::string& columns)
    : name_(std::move(name)) {
  try {
    text_ = tables::TextFile::of(QByteArray::fromRawData(bytes.data(), bytes.size()));
    choice_ = tables::guessTable(text_.utf8);
  } catch (const tables::FileError& error) {
    throw Failure("cannot read " + name_ + ": " + error.what());
  }
  choice_.hasHeader = choice_.hasHeader || (!columns.empty() && NamesTitles(columns));
  int row = 0;
  tables::CsvReader(choice_.delimiter).readRows(text_.utf8, [&](const tables::CsvRow& read) {
    if (row == choice_.skippedRows) {
      width_ = static_cast<int>(read.cells.size());
      titles_ = choice_.hasHeader ? read.cells : QStringList();
      const auto own = std::find_if(titles_.begin(), titles_.end(),
                                    [](const QString& title) { return title.startsWith(kOwn); });
      width_ = titles_.isEmpty() ? width_ : static_cast<int>(own - titles_.begin());
    }
    return row++ < choice_.skippedRows;
  });
  if (!columns.empty()) {
    addresses_.append(LabelColumns(columns, titles_, width_));
    return;
  }
  for (const tables::AddressColumns& guessed : choice_.addresses) {
    addresses_.append(LabelColumns(guessed, titles_, width_));
  }
  if (!addresses_.first().IsUsable()) {
    throw Failure(
        "no columns of an address are known in " + name_ +
        "; name them, as in --columns 'street=Address 1,city=City,state=State,zip=ZIP' or "
        "--columns 'street=2,city=3'" +
        (titles_.isEmpty() ? ""
                           : "; they are: " + titles_.join(QStringLiteral(", ")).toStdString()));
  }
}

std::string AddressTable::Description() const {
  QStringList descriptions;
  for (const LabelColumns& address : addresses_) {
    descriptions.append(
        (address.Kind().isEmpty() ? QString() : address.Kind() + QStringLiteral(": ")) +
        address.Describe(titles_));
  }
  return name_ + ": " + descriptions.join(QStringLiteral("; ")).toStdString();
}

// Whether the cells after the table's own columns are those of an earlier run, and not of a row
// that has more cells than it should.
bool AddressTable::HasOwnCells(const tables::CsvRow& row) const {
  if (row.cells.size() != titles_.size()) {
    return false;
  }
  bool isTold = false;  // each answer has a status, or the ZIP code of an address
  bool isEmpty = true;
  for (int column = width_; column < titles_.size(); ++column) {
    const QString& title = titles_[column];
    const QString& cell = row.cells[column];
    if (cell.isEmpty()) {
      continue;
    }
    if (!CanBeOwn(title, cell)) {
      return false;
    }
    isTold = isTold || IsStatus(title) || IsZip(title);
    isEmpty = false;
  }
  return isTold || isEmpty;
}

AddressTable::RowKind AddressTable::KindOf(const tables::CsvRow& row, int number) const {
  const int header = choice_.skippedRows + 1;
  if (number < header) {
    return RowKind::kAbove;
  }
  if (number == header && choice_.hasHeader) {
    return RowKind::kHeader;
  }
  const auto isEmpty = [](const QString& cell) { return cell.isEmpty(); };
  const auto end = row.cells.begin() + std::min<qsizetype>(width_, row.cells.size());
  return !row.isBroken && (HasOwnCells(row) || std::all_of(end, row.cells.end(), isEmpty))
             ? RowKind::kEntry
             : RowKind::kUnreadable;
}

void AddressTable::ReadRows(
    const std::function<void(RowKind kind, const tables::CsvRow& row, int number)>& take) const {
  int number = 0;
  tables::CsvReader(choice_.delimiter).readRows(text_.utf8, [&](const tables::CsvRow& row) {
    ++number;
    take(KindOf(row, number), row, number);
    return true;
  });
}

void AddressTable::ReadLabels(const std::function<void(const QString& label)>& take) const {
  ReadRows([&](RowKind kind, const tables::CsvRow& row, int) {
    for (const LabelColumns& address : addresses_) {
      const QString label = kind == RowKind::kEntry ? address.LabelOf(row.cells) : QString();
      if (!label.isEmpty()) {
        take(label);
      }
    }
  });
}

QByteArray AddressTable::Rewrite(const QStringList& added, const Answer& answer,
                                 const std::function<void(const std::string&)>& warn) const {
  QStringList titles = titles_.isEmpty() ? QStringList(width_, QString()) : titles_;
  const QList<int> places = PlacesOf(NamesOfAdded(added, addresses_), titles);
  tables::TextFile written{{}, text_.encoding};
  qsizetype copied = 0;
  ReadRows([&](RowKind kind, const tables::CsvRow& row, int number) {
    QStringList cells = row.cells;
    if (kind == RowKind::kHeader) {
      cells = titles;
    } else if (kind == RowKind::kEntry) {
      cells.resize(titles.size());
      QStringList results;
      for (const LabelColumns& address : addresses_) {
        results += address.LabelOf(row.cells).isEmpty() ? QStringList(added.size(), QString())
                                                        : answer(address, cells);
      }
      for (qsizetype result = 0; result < results.size(); ++result) {
        cells[places[result]] = results[result];
      }
    } else if (kind == RowKind::kUnreadable) {
      warn(ProblemOf(row, number));
    }
    written.utf8 += tables::csvRowWith(row.range.of(text_.utf8), cells, choice_.delimiter);
    copied = row.range.end;
  });
  written.utf8 += text_.utf8.sliced(copied);
  QStringList notes;
  QByteArray bytes = written.bytes(notes);
  for (const QString& note : notes) {
    warn(note.toStdString());
  }
  return bytes;
}

std::string AddressTable::ProblemOf(const tables::CsvRow& row, int number) const {
  return "row " + std::to_string(number) + " of " + name_ +
         (row.isBroken ? " has a quotation mark that nothing closes"
                       : " has more cells than the " + std::to_string(width_) + " of the table") +
         "; it stays as it is";
}

}  // namespace postwright
