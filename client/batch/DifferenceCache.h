#ifndef POSTWRIGHT_CLIENT_BATCH_DIFFERENCECACHE_H_
#define POSTWRIGHT_CLIENT_BATCH_DIFFERENCECACHE_H_

#include <postwright/BatchResultRecord.h>

#include <QCache>
#include <QList>
#include <QObject>
#include <QTimer>

#include "client/batch/review/Differences.h"

namespace postwright {

// The differences of the records that are on the screen, worked out once and not while a row is
// painted: a row that is asked for is put on a list, and told of when it is done.
class DifferenceCache final : public QObject {
  Q_OBJECT

 public:
  DifferenceCache();

  // Null where the differences are not worked out yet; then ready() follows.
  const Differences* find(const BatchResultRecordPointer& record);
  // Works them out at once; for what is asked for one by one, such as a tool tip.
  const Differences& get(const BatchResultRecord& record);
  void forget(const BatchResultRecord& record) { _known.remove(&record); }
  void clear();

 signals:
  void ready(const BatchResultRecordPointer& record);

 private:
  void workOut();

  QCache<const BatchResultRecord*, Differences> _known;
  BatchResultRecordList _toCome;
  QTimer _timer;
};

}  // namespace postwright

#endif  // POSTWRIGHT_CLIENT_BATCH_DIFFERENCECACHE_H_
