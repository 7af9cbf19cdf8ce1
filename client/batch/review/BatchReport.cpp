#include "client/batch/review/BatchReport.h"

#include <QLocale>
#include <QMap>
#include <QStringList>

#include "client/LocalizedString.h"
#include "client/ReviewWords.h"
#include "client/batch/review/BatchTexts.h"
#include "client/batch/review/Explanations.h"

namespace postwright {
namespace {

using Values = BatchResultRecord::Values;

QString originalText(const BatchResultRecord& record) {
  return record.entry() != nullptr ? record.entry()->value() : record.values().address;
}

// The corrected text, where there is one.
QString fixedText(const Values& values) {
  return values.pending ? QString() : values.fixed;
}

QString standing(const Values& values) {
  return values.pending ? localizedString("SNotAskedShort") : statusText(values);
}

// Why it stands so: in words, or by the rules of what was corrected.
QString reasonOf(const Values& values) {
  if (values.pending) {
    return {};
  }
  QStringList reasons{whyText(values)};
  if (!values.corrected().isEmpty()) {
    for (const CorrectionRule rule : values.rules) {
      reasons.append(wordsOf(rule));
    }
  }
  reasons.removeAll(QString());
  return reasons.join(QStringLiteral("; "));
}

QString csvCell(QString text) {
  static const QString signs = QStringLiteral("=+-@\t\r");
  if (!text.isEmpty() && signs.contains(text.front())) {
    text.prepend(u'\'');
  }
  return u'"' + text.replace(u'"', QStringLiteral("\"\"")) + u'"';
}

QStringList cellsOf(const BatchResultRecord& record) {
  const Values values = record.values();
  return {originalText(record), fixedText(values), standing(values), confirmationText(values),
          reasonOf(values)};
}

QStringList columnNames() {
  return {localizedString("SColumnAddress"), localizedString("SColumnFixed"),
          localizedString("SColumnStatus"), localizedString("SColumnConfirmation"),
          localizedString("SColumnReason")};
}

QString htmlRow(const QStringList& cells, const QString& tag) {
  QString row = QStringLiteral("<tr>");
  for (const QString& cell : cells) {
    row += u'<' + tag + u'>' + cell.toHtmlEscaped().replace(u'\n', QStringLiteral("<br>")) +
           QStringLiteral("</") + tag + u'>';
  }
  return row + QStringLiteral("</tr>\n");
}

// How far the service knows what it corrected or would not write differently.
QList<SummaryLine> confirmationLines(const BatchResultRecordList& records) {
  QMap<qint32, SummaryLine> kinds;
  qsizetype answers = 0;
  for (const BatchResultRecordPointer& record : records) {
    const Values values = record->values();
    if (!confirmationText(values).isEmpty()) {
      SummaryLine& line = kinds[values.confirmation.Kind()];
      line = {wordsOf(values.confirmation), line.count + 1, true};
      ++answers;
    }
  }
  return QList<SummaryLine>{{localizedString("SSumConfirmation"), answers}} + kinds.values();
}

}  // namespace

QList<SummaryLine> summaryLines(const BatchResultRecordList& records) {
  const ReviewCounts counts = countRecords(records);
  QMap<QString, qsizetype> reasons;
  QMap<QString, qsizetype> failures;
  qsizetype own = 0;
  for (const BatchResultRecordPointer& record : records) {
    const Values values = record->values();
    own += !values.pending && values.own && values.status == AddressStatusFixed ? 1 : 0;
    if (!values.pending && values.status == AddressStatusError) {
      ++(values.isUnanswered() ? failures : reasons)[values.failure()];
    }
  }
  QList<SummaryLine> lines{{localizedString("SSumRight"), counts.right()},
                           {localizedString("SSumUnconfirmed"), counts.unconfirmed},
                           {localizedString("SSumTyped"), counts.kept},
                           {localizedString("SSumFixed"), counts.fixed - own}};
  const auto appendParts = [&lines](const QMap<QString, qsizetype>& parts) {
    for (auto part = parts.begin(); part != parts.end(); ++part) {
      lines.append({part.key(), part.value(), true});
    }
  };
  appendParts(countRules(records));
  lines += QList<SummaryLine>{{localizedString("SSumOwn"), own},
                              {localizedString("SSumDoubtful"), counts.doubtful},
                              {localizedString("SSumMultiple"), counts.multiple - counts.doubtful},
                              {localizedString("SSumErrors"), counts.errors - counts.notAsked}};
  appendParts(reasons);
  lines.append({localizedString("SSumUnanswered"), counts.notAsked});
  appendParts(failures);
  lines.append({localizedString("SSumPending"), counts.pending});
  lines += confirmationLines(records);
  lines.removeIf([](const SummaryLine& line) { return line.count == 0; });
  return lines;
}

QString labelsOf(const BatchResultRecordList& records) {
  QStringList labels;
  for (const BatchResultRecordPointer& record : records) {
    const Values values = record->values();
    const QString fixed = fixedText(values);
    labels.append(fixed.isEmpty() ? values.address : fixed);
  }
  return labels.join(QStringLiteral("\n\n"));
}

QString csvReport(const BatchResultRecordList& records) {
  QString table;
  const auto append = [&table](const QStringList& cells) {
    QStringList quoted;
    for (const QString& cell : cells) {
      quoted.append(csvCell(cell));
    }
    table += quoted.join(u',') + QStringLiteral("\r\n");
  };
  append(columnNames());
  for (const BatchResultRecordPointer& record : records) {
    append(cellsOf(*record));
  }
  return table;
}

QString htmlReport(const BatchResultRecordList& records) {
  QString page =
      QStringLiteral(
          "<!DOCTYPE html>\n<html lang=\"%1\"><head><meta charset=\"utf-8\"><title>%2"
          "</title><style>body{font-family:sans-serif}table{border-collapse:collapse;"
          "margin-bottom:1em}td,th{border:1px solid #999;padding:4px 8px;text-align:left;"
          "vertical-align:top}</style></head><body><h1>%2</h1>\n<table>\n")
          .arg(QLocale().bcp47Name(), localizedString("SReportTitle").toHtmlEscaped());
  for (const SummaryLine& line : summaryLines(records)) {
    const QString indent = line.part ? QStringLiteral("– ") : QString();
    page += htmlRow({indent + line.text, QLocale().toString(line.count)}, QStringLiteral("td"));
  }
  page += QStringLiteral("</table>\n<table>\n") + htmlRow(columnNames(), QStringLiteral("th"));
  for (const BatchResultRecordPointer& record : records) {
    page += htmlRow(cellsOf(*record), QStringLiteral("td"));
  }
  return page + QStringLiteral("</table></body></html>\n");
}

}  // namespace postwright
