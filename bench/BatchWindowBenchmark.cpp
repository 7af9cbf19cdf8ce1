// The batch window on a long list: how soon it opens, what a record takes, how a page scrolls, and
// whether the last results cost more to show than the first. Answers come from the program itself
// as fast as the window takes them, so that only the window is measured.

#include <postwright/PostwrightController.h>

#include <malloc.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QProgressBar>
#include <QScrollBar>
#include <QSemaphore>
#include <QTableView>
#include <QTimer>
#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <locale>

#include "bench/FigureBefore.h"
#include "tests/client/batch/Entries.h"

namespace postwright {
namespace {

constexpr int kRecords = 100000;
constexpr int kThousand = 1000;

Entries makeEntries() {
  Entries entries;
  for (int i = 0; i < kRecords; ++i) {
    entries.append(std::make_shared<Entry>(
        QStringLiteral("Resident %1\n%1 Main Street, Apartment %2\nAustin, Texas 78701")
            .arg(i)
            .arg(i % 90)));
  }
  return entries;
}

QString correctedText(const QString& address) {
  return QString(address)
      .replace(QLatin1String("Street, Apartment"), QLatin1String("St Apt"))
      .replace(QLatin1String(", Texas"), QLatin1String(" TX"));
}

double heapBytes() {
  return static_cast<double>(mallinfo2().uordblks);
}

// Processor time of this thread, the window's, in seconds.
double threadSeconds() {
  timespec now{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

// Lets the worker answer `count` more times and returns the window's time for showing them.
double showResults(int count, QSemaphore& answers, const QProgressBar& progress) {
  const int goal = progress.value() + count;
  const double before = threadSeconds();
  answers.release(count);
  while (progress.value() < goal) {
    QApplication::processEvents(QEventLoop::WaitForMoreEvents);
  }
  QEventLoop rest;  // coalesced results are shown a little later
  QTimer::singleShot(std::chrono::milliseconds(100), &rest, &QEventLoop::quit);
  rest.exec();
  return threadSeconds() - before;
}

// The median time for a thousand results, of ten thousand.
double showTenThousands(QSemaphore& answers, const QProgressBar& progress) {
  std::array<double, 10> times{};
  for (double& time : times) {
    time = showResults(kThousand, answers, progress);
  }
  std::nth_element(times.begin(), times.begin() + times.size() / 2, times.end());
  return times[times.size() / 2];
}

// Pages through part of the list, painting each page; returns the seconds of the slowest page.
double scrollPages(QTableView& table, int pages) {
  double slowest = 0;
  QScrollBar& bar = *table.verticalScrollBar();
  for (int page = 0; page < pages; ++page) {
    const double before = threadSeconds();
    bar.setValue(bar.value() + bar.pageStep());
    table.viewport()->repaint();
    slowest = std::max(slowest, threadSeconds() - before);
  }
  return slowest;
}

// Prints a figure, and the last version's.
void print(const char* text, double figure) {
  std::printf("%-50s%8.2f  %s\n", text, figure, FigureBefore(text).c_str());
}

int measure() {
  const Entries entries = makeEntries();
  QSemaphore answers;
  const double heapBefore = heapBytes();
  QElapsedTimer clock;
  clock.start();
  PostwrightController window(entries, true, CapitalizationMixed, std::nullopt);
  window.setAsk([&answers](PostwrightClient&, const QString& address) {
    answers.acquire();
    return AddressOutcome{AddressFix{correctedText(address), {}}, {}};
  });
  window.show();
  QApplication::processEvents();
  print("opens with 100000 entries, seconds", static_cast<double>(clock.elapsed()) / 1000);

  const auto& progress = *window.findChild<QProgressBar*>(QStringLiteral("piProgress"));
  const double first = showTenThousands(answers, progress);
  const double middle = showResults(kRecords - 20 * kThousand, answers, progress);
  const double last = showTenThousands(answers, progress);
  print("shows a thousand results, milliseconds", 1000 * first);
  print("the same, when 80,000 come at once", 1000 * middle / 80);
  print("a thousand at the end / at the beginning", last / first);

  double text = 0;
  for (const std::shared_ptr<AddressEntry>& entry : entries) {
    text += static_cast<double>(correctedText(entry->value()).size() + 1) * sizeof(QChar);
  }
  print("bytes a record above the texts", (heapBytes() - heapBefore - text) / kRecords);

  auto& table = *window.findChild<QTableView*>(QStringLiteral("tvAddresses"));
  print("slowest page of 500, milliseconds", 1000 * scrollPages(table, 500));
  window.bnUpdateClick();
  return window.results().size() == kRecords ? 0 : 1;
}

}  // namespace
}  // namespace postwright

int main(int argc, char** argv) {
  setenv("QT_QPA_PLATFORM", "offscreen", 0);
  QApplication application(argc, argv);
  std::locale::global(std::locale(std::locale::classic(), "C.UTF-8", std::locale::ctype));
  return postwright::measure();
}
