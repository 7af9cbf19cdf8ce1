#include "tests/support/HostileShapes.h"

namespace postwright {

namespace {

using std::chrono::milliseconds;
using std::string_literals::operator""s;
using enum HttpOutcome;

const std::string kOk = "HTTP/1.1 200 OK\r\n";
const std::string kChunked = "Transfer-Encoding: chunked\r\n\r\n";
const std::string kInterim = "HTTP/1.1 100 Continue\r\nA: B\r\n\r\n";
const std::string kMuch(1U << 14U, 'x');
const std::string kField = "A: " + kMuch.substr(0, 1024) + "\r\n";
const std::string kHello =  // packed by gzip
    "\x1F\x8B\x08\0\0\0\0\0\0\x03\xCB\x48\xCD\xC9\xC9\x07\0\x86\xA6\x10\x36\x05\0\0\0"s;
const std::string kHelloChunk = "19\r\n" + kHello + "\r\n0\r\n\r\n";
constexpr milliseconds kPause(20);

}  // namespace

HttpLimits HostileLimits() {
  HttpLimits limits;
  limits.silence = std::chrono::seconds(60);
  limits.whole = milliseconds(3000);
  limits.bytes = std::size_t{1} << 20U;
  limits.headBytes = std::size_t{64} << 10U;
  return limits;
}

const std::vector<HostileShape>& HostileShapes() {
  static const std::vector<HostileShape> shapes = {
      {"length given", LoopbackServer::Page("hello"), Answered, "hello"},
      {"up to the close", {kOk + "\r\nhello", true}, Answered, "hello"},
      {"chunks", {kOk + kChunked + "2\r\nhe\r\n3\r\nllo\r\n0\r\n\r\n"}, Answered, "hello"},
      {"extensions and trailers",
       {kOk + kChunked + "5;a=b\r\nhello\r\n0;c\r\nD: e\r\n\r\n"},
       Answered,
       "hello"},
      {"interim answers", {kInterim + kInterim + kOk + "\r\nhello", true}, Answered, "hello"},
      {"zero bytes", LoopbackServer::Page("a\0b"s), Answered, "a\0b"s},
      {"page of another", LoopbackServer::Page("<html><p>Hello"), Answered, "<html><p>Hello"},
      {"more than announced", {kOk + "Content-Length: 3\r\n\r\nhello"}, Answered, "hel"},
      {"length and chunks",
       {kOk + "Content-Length: 2\r\n" + kChunked + "5\r\nhello\r\n0\r\n\r\n"},
       Answered,
       "hello"},
      {"packed",
       {kOk + "Content-Encoding: gzip\r\n\r\n" + kHello, true},
       Answered,
       kHello,
       "hello"},
      {"page of an error", {"HTTP/1.1 500 No\r\nContent-Length: 4\r\n\r\noops"}, Answered, "oops"},

      {"closed at once", {"", true}, NoAnswer},
      {"not HTTP", {"hello\r\n\r\n", true}},
      {"half a head", {kOk + "Content-", true}, BrokeOff},
      {"half a body", {kOk + "Content-Length: 9\r\n\r\nhello", true}, BrokeOff},
      {"two lengths", {kOk + "Content-Length: 6\r\nContent-Length: 5\r\n\r\nhello", true}},
      {"lengths in one field", {kOk + "Content-Length: 5, 6\r\n\r\nhello", true}},
      {"a length below nothing", {kOk + "Content-Length: -5\r\n\r\nhello", true}},
      {"a length of no number", {kOk + "Content-Length: five\r\n\r\nhello", true}},
      {"half a chunk", {kOk + kChunked + "9\r\nhello", true}, BrokeOff},
      {"a chunk of no size", {kOk + kChunked + "x\r\nhello\r\n", true}},
      {"a chunk size without end", {kOk + kChunked, false, "0"}},
      {"a chunk of 2^64", {kOk + kChunked + "10000000000000000\r\nhello\r\n", true}},

      {"packed for the way", {kOk + "Transfer-Encoding: gzip, chunked\r\n\r\n" + kHelloChunk}},
      {"packed, in two fields",
       {kOk + "Transfer-Encoding: gzip\r\nTransfer-Encoding: chunked\r\n\r\n" + kHelloChunk}},
      {"packed up to the close", {kOk + "Transfer-Encoding: gzip\r\n\r\n" + kHello, true}},
      {"packed within packed", {kOk + "Content-Encoding: gzip, gzip\r\n\r\n" + kHello, true}},

      {"silence", {""}, TimedOut},
      {"silence after half", {kOk + "Content-Length: 9\r\n\r\nhello"}, TimedOut},
      {"slow head", {kOk + "A: ", false, "x", kPause}, TimedOut},
      {"slow body", {kOk + "\r\n", false, "x", kPause}, TimedOut},
      {"slow extension", {kOk + kChunked + "5;", false, "x", kPause}, TimedOut},
      {"slow trailers", {kOk + kChunked + "0\r\n", false, "A: b\r\n", kPause}, TimedOut},
      {"slow interim answers", {"", false, kInterim, kPause}, TimedOut},

      {"announced too long", {kOk + "Content-Length: 1048577\r\n\r\n", false, kMuch}, TooLong},
      {"endless body", {kOk + "\r\n", false, kMuch}, TooLong},
      {"endless chunks", {kOk + kChunked, false, "4000\r\n" + kMuch + "\r\n"}, TooLong},
      {"a byte a chunk", {kOk + kChunked, false, "1;" + kMuch + "\r\nx\r\n"}, TooLong},
      {"endless extension", {kOk + kChunked + "5;", false, kMuch}, TooLong},
      {"endless trailers", {kOk + kChunked + "0\r\n", false, kField}, TooLong},
      {"endless head", {kOk, false, kField}, TooLong},
      {"endless interim answers", {"", false, kInterim}, TooLong},
      {"endless field", {kOk + "A: ", false, kMuch}, TooLong},
      {"endless status line", {"HTTP/1.1 200 ", false, kMuch}, TooLong},
  };
  return shapes;
}

}  // namespace postwright
