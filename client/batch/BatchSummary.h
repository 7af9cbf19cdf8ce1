#ifndef POSTWRIGHT_CLIENT_BATCH_BATCHSUMMARY_H_
#define POSTWRIGHT_CLIENT_BATCH_BATCHSUMMARY_H_

#include <QDialog>

#include "client/batch/review/BatchReport.h"

namespace postwright {

// How a list stands, in figures with a bar to each that a screen reader reads too; from here the
// report is saved.
class BatchSummary final : public QDialog {
  Q_OBJECT

 public:
  BatchSummary(const BatchResultRecordList& records, QWidget* parent);

  // Asks where to, and saves the records there: a page where the name ends in .html or .htm, else a
  // table. Says so where that fails, and leaves the file as it was.
  void saveReport();

  // Writes the report to `file`; false, with the message in `error`, where that fails.
  static bool write(const BatchResultRecordList& records, const QString& file, QString& error);

 private:
  const BatchResultRecordList _records;
};

}  // namespace postwright

#endif  // POSTWRIGHT_CLIENT_BATCH_BATCHSUMMARY_H_
