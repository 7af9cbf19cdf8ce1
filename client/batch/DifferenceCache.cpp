#include "client/batch/DifferenceCache.h"

#include <QElapsedTimer>
#include <chrono>

#include "client/batch/review/LongLines.h"

namespace postwright {

DifferenceCache::DifferenceCache() {
  constexpr qsizetype kRowsKept = 4000;
  _known.setMaxCost(kRowsKept);
  _timer.setSingleShot(true);
  connect(&_timer, &QTimer::timeout, this, &DifferenceCache::workOut);
}

const Differences* DifferenceCache::find(const BatchResultRecordPointer& record) {
  if (const Differences* known = _known.object(record.get())) {
    return known;
  }
  if (!_toCome.contains(record)) {
    _toCome.append(record);
  }
  _timer.start(std::chrono::milliseconds(0));
  return nullptr;
}

const Differences& DifferenceCache::get(const BatchResultRecord& record) {
  if (const Differences* known = _known.object(&record)) {
    return *known;
  }
  const BatchResultRecord::Values values = record.values();
  auto* found =
      new Differences(findDifferences(cutLongLines(values.address), cutLongLines(values.fixed)));
  _known.insert(&record, found);
  return *found;
}

void DifferenceCache::clear() {
  _known.clear();
  _toCome.clear();
}

// Those that were asked for last are on the screen now. Other events get their turn in between.
void DifferenceCache::workOut() {
  constexpr qint64 kMilliseconds = 10;
  QElapsedTimer turn;
  turn.start();
  while (!_toCome.isEmpty() && turn.elapsed() < kMilliseconds) {
    const BatchResultRecordPointer record = _toCome.takeLast();
    (void)get(*record);
    emit ready(record);
  }
  if (!_toCome.isEmpty()) {
    _timer.start(std::chrono::milliseconds(0));
  }
}

}  // namespace postwright
