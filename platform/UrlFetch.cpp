#include "platform/UrlFetch.h"

#include <curl/curl.h>
#include <unistd.h>

#include <memory>
#include <new>

namespace postwright {

namespace {

template <auto function>
struct Deleter {
  template <typename T>
  void operator()(T* object) const {
    function(object);
  }
};

using UrlParts = std::unique_ptr<CURLU, Deleter<curl_url_cleanup>>;
using HeaderList = std::unique_ptr<curl_slist, Deleter<curl_slist_free_all>>;

// What has come in so far, against what may.
struct Reply {
  std::vector<std::uint8_t> body;
  std::size_t headerBytes = 0;
  std::size_t limit = 0;
};

// libcurl ends the transfer when one of these two takes fewer bytes than it was offered.

std::size_t TakeBody(char* data, std::size_t, std::size_t size, void* context) noexcept {
  auto* reply = static_cast<Reply*>(context);
  if (size > reply->limit - reply->body.size()) {
    return 0;
  }
  try {
    reply->body.insert(reply->body.end(), data, data + size);
  } catch (const std::bad_alloc&) {
    return 0;  // the fetch fails: the caller keeps the user's text and hears of a bad reply
  }
  return size;
}

// Headers are counted for a server that never stops sending them, trailers and interim replies
// among them.
std::size_t TakeHeader(char*, std::size_t, std::size_t size, void* context) noexcept {
  auto* reply = static_cast<Reply*>(context);
  reply->headerBytes += size;
  return reply->headerBytes > reply->limit ? 0 : size;
}

// Bodies of redirects are read past without TakeBody; their length is only seen here.
int WatchProgress(void* context, curl_off_t, curl_off_t received, curl_off_t, curl_off_t) noexcept {
  return static_cast<std::size_t>(received) > static_cast<Reply*>(context)->limit ? 1 : 0;
}

// One thread's libcurl handle, which keeps the connection between fetches.
class Connection {
 public:
  Connection();
  ~Connection();
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  // False in a child of the process that made it, whose socket still serves the parent.
  bool IsOurs() const { return owner_ == getpid(); }

  bool Get(CURLU* url, const FetchLimits& limits, Reply* reply);

 private:
  const pid_t owner_ = getpid();
  const HeaderList headers_{curl_slist_append(nullptr, "Accept:")};  // libcurl's own, taken out
  CURL* handle_ = nullptr;
};

Connection::Connection() {
  static const bool ready = curl_global_init(CURL_GLOBAL_DEFAULT) == CURLE_OK;
  handle_ = ready ? curl_easy_init() : nullptr;
  if (handle_ == nullptr) {
    return;
  }
  curl_easy_setopt(handle_, CURLOPT_HTTPHEADER, headers_.get());
  curl_easy_setopt(handle_, CURLOPT_HTTPGET, 1L);
  curl_easy_setopt(handle_, CURLOPT_NOSIGNAL, 1L);
  curl_easy_setopt(handle_, CURLOPT_TCP_NODELAY, 1L);
  curl_easy_setopt(handle_, CURLOPT_PROTOCOLS_STR, "http,https");
  curl_easy_setopt(handle_, CURLOPT_REDIR_PROTOCOLS_STR, "http,https");
  curl_easy_setopt(handle_, CURLOPT_FOLLOWLOCATION, 1L);
  curl_easy_setopt(handle_, CURLOPT_WRITEFUNCTION, &TakeBody);
  curl_easy_setopt(handle_, CURLOPT_HEADERFUNCTION, &TakeHeader);
  curl_easy_setopt(handle_, CURLOPT_XFERINFOFUNCTION, &WatchProgress);
  curl_easy_setopt(handle_, CURLOPT_NOPROGRESS, 0L);
}

Connection::~Connection() {
  // A forked child must not say good-bye on a connection that the parent goes on using.
  if (handle_ != nullptr && IsOurs()) {
    curl_easy_cleanup(handle_);
  }
}

bool Connection::Get(CURLU* url, const FetchLimits& limits, Reply* reply) {
  if (handle_ == nullptr) {
    return false;
  }
  curl_easy_setopt(handle_, CURLOPT_CURLU, url);
  curl_easy_setopt(handle_, CURLOPT_CONNECTTIMEOUT_MS, static_cast<long>(limits.connect.count()));
  curl_easy_setopt(handle_, CURLOPT_LOW_SPEED_LIMIT, 1L);
  curl_easy_setopt(handle_, CURLOPT_LOW_SPEED_TIME, static_cast<long>(limits.silence.count()));
  curl_easy_setopt(handle_, CURLOPT_MAXREDIRS, limits.redirects);
  curl_easy_setopt(handle_, CURLOPT_WRITEDATA, reply);
  curl_easy_setopt(handle_, CURLOPT_HEADERDATA, reply);
  curl_easy_setopt(handle_, CURLOPT_XFERINFODATA, reply);
  const bool fetched = curl_easy_perform(handle_) == CURLE_OK;
  curl_easy_setopt(handle_, CURLOPT_CURLU, nullptr);
  return fetched;
}

// The calling thread's connection, a new one after a fork.
Connection& ThreadConnection() {
  thread_local std::unique_ptr<Connection> connection;
  if (connection == nullptr || !connection->IsOurs()) {
    connection = std::make_unique<Connection>();
  }
  return *connection;
}

}  // namespace

std::vector<std::uint8_t> FetchUrl(const std::string& url, const FetchLimits& limits) noexcept {
  try {
    // Parsed here and not by the transfer, which would take a URL without a scheme for http.
    const UrlParts parts(curl_url());
    if (parts == nullptr || curl_url_set(parts.get(), CURLUPART_URL, url.c_str(), 0) != CURLUE_OK) {
      return {};
    }
    Reply reply;
    reply.limit = limits.bytes;
    if (ThreadConnection().Get(parts.get(), limits, &reply)) {
      return std::move(reply.body);
    }
  } catch (const std::bad_alloc&) {
    // No memory is one more failed fetch.
  }
  return {};
}

}  // namespace postwright
