#include "apps/postwright/table/FixTable.h"

#include <QJsonArray>
#include <QJsonObject>
#include <algorithm>
#include <iostream>

#include "apps/postwright/stream/JsonRecord.h"
#include "apps/postwright/stream/Output.h"
#include "apps/postwright/table/WriteTable.h"
#include "apps/tables/LabelText.h"
#include "core/label/FixStatus.h"

namespace postwright {

namespace {

QString TextOf(std::string_view code) {
  return QLatin1String(code.data(), static_cast<qsizetype>(code.size()));
}

QString OneLine(const QString& label) {
  return label.split(QLatin1Char('\n'), Qt::SkipEmptyParts).join(QStringLiteral(", "));
}

// The ZIP+4 of a label; empty where it has none.
QString ZipPlusFour(const QString& label) {
  const std::optional<tables::PlaceParts> place = tables::partLabel(label).place;
  return place && place->zip.contains(QLatin1Char('-')) ? place->zip : QString();
}

QString ChangesOf(const QJsonObject& record) {
  const auto words = [](const QJsonValue& change, const char* side) {
    const QString text = change[QLatin1String(side)].toString();
    return text.isEmpty() ? QStringLiteral("(nothing)") : text;
  };
  QStringList changes;
  for (const QJsonValue change : record[QLatin1String("changes")].toArray()) {
    changes.append(change[QLatin1String("text")].toString() + QStringLiteral(": ") +
                   words(change, "typed") + QStringLiteral(" -> ") + words(change, "corrected"));
  }
  return OneLine(changes.join(QStringLiteral("; ")));
}

QString CandidatesOf(const QJsonObject& record) {
  QStringList candidates;
  for (const QJsonValue candidate : record[QLatin1String("candidates")].toArray()) {
    candidates.append(OneLine(candidate[QLatin1String("address")].toString()));
  }
  return candidates.join(QStringLiteral(" | "));
}

// Puts the records, one after another, into the rows that their labels are of.
class RecordCells {
 public:
  RecordCells(RowRecords& records, const FixTableOptions& options)
      : records_(records), options_(options) {}

  QStringList Titles() const {
    QStringList titles{QStringLiteral("status"), QStringLiteral("confirmation"),
                       QStringLiteral("reason"), QStringLiteral("zip4"),
                       QStringLiteral("proposed")};
    if (options_.explain) {
      titles +=
          {QStringLiteral("reason_text"), QStringLiteral("source_text"), QStringLiteral("changes")};
    }
    if (options_.candidates) {
      titles += QStringLiteral("candidates");
    }
    return titles;
  }

  QStringList Put(const LabelColumns& columns, QStringList& cells) {
    if (!records_.Next()) {
      QStringList nothing(Titles().size(), QString());
      nothing.first() = TextOf(kNotAsked);
      return nothing;
    }
    const QJsonObject record = records_.Record();
    FixStatus status = StatusOfRecord(records_.Line()).value_or(FixStatus::kUnchanged);
    QString reason = record[QLatin1String("reason")].toString();
    QString reasonText = record[QLatin1String("reason_text")].toString();
    QString proposed = record[QLatin1String("proposed")].toString();
    const QString fixed = record[QLatin1String("fixed")].toString();
    if (status == FixStatus::kFixed) {
      if (const std::optional<QStringList> changed = columns.WithLabel(cells, fixed)) {
        status = cells == *changed ? FixStatus::kUnchanged : FixStatus::kFixed;
        cells = *changed;
      } else {
        status = FixStatus::kUndecided;
        reason = QStringLiteral("columns");
        reasonText =
            QStringLiteral("The corrected label does not divide into the columns of the table.");
        proposed = fixed;
      }
    }
    QStringList results{TextOf(CodeOf(status)), record[QLatin1String("confirmation")].toString(),
                        reason, status <= FixStatus::kFixed ? ZipPlusFour(fixed) : QString(),
                        OneLine(proposed)};
    if (options_.explain) {
      results +=
          {OneLine(reasonText), record[QLatin1String("source_text")].toString(), ChangesOf(record)};
    }
    if (options_.candidates) {
      results += CandidatesOf(record);
    }
    return results;
  }

 private:
  RowRecords& records_;
  const FixTableOptions& options_;
};

}  // namespace

ExitStatus FixTable(const AddressTable& table, const FixTableOptions& options,
                    const RowRecords::Stream& fix) {
  Output output(options.output);  // first, so that nothing is asked where it cannot be written
  RowRecords records(table, options.records, RowId::kNone, fix);
  if (records.Status() == kExitOutage && options.records.empty()) {
    std::cerr << "postwright: the rows that were not reached have the status not-asked; with "
                 "--resume FILE from the start the same command goes on with them\n";
  }
  RecordCells cells(records, options);
  const ExitStatus written = WriteTable(
      table, cells.Titles(),
      [&cells](const LabelColumns& columns, QStringList& row) { return cells.Put(columns, row); },
      output);
  return std::max(records.Status(), written);
}

}  // namespace postwright
