#include "service/http/HttpServer.h"

#include <microhttpd.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cstring>
#include <thread>
#include <unordered_set>

#include "common/Loopback.h"
#include "service/http/ConnectionWatch.h"
#include "service/http/Exchange.h"
#include "service/http/HeadCheck.h"
#include "service/http/LibraryConnection.h"
#include "service/http/RequestTarget.h"

namespace postwright::service {
namespace {

using Steady = std::chrono::steady_clock;
using ExchangePointer = std::shared_ptr<Exchange>;

constexpr int kOk = 200;
constexpr int kBadRequest = 400;
constexpr int kContentTooLarge = 413;

// The methods that are known, by their own text; nothing that a client made up goes into a log.
std::string KnownMethod(const std::string& method) {
  return method == "GET" || method == "HEAD" || method == "POST" ? method : "other";
}

// What OnConnection keeps with a connection.
struct Peer {
  const std::string host;  // its address in text
  ConnectionWatch::Connection& watched;
};

Peer& PeerOf(MHD_Connection* connection) {
  return *static_cast<Peer*>(
      MHD_get_connection_info(connection, MHD_CONNECTION_INFO_SOCKET_CONTEXT)->socket_context);
}

}  // namespace

class HttpServer::Impl {
 public:
  Impl(const ListenAddress& address, const Limits& limits, Handler handler, RequestLog& log)
      : limits_(limits),
        handler_(std::move(handler)),
        log_(log),
        watch_(
            {limits.connections, limits.connectionsPerAddress, limits.yielding, limits.request}) {
    const int socket = address.Open();
    address_ = ListenAddress::OfSocket(socket);
    Start(socket);
  }

  ~Impl() {
    AbandonWaiting();
    MHD_stop_daemon(daemon_);
  }

  const std::string& Address() const { return address_; }

  void Drain(std::chrono::milliseconds limit) {
    constexpr std::chrono::milliseconds kStep(5);
    constexpr std::chrono::seconds kLastPatience(1);  // for a head that is not whole
    draining_ = true;
    if (const MHD_socket socket = MHD_quiesce_daemon(daemon_); socket != MHD_INVALID_SOCKET) {
      TakeWaiting(socket);
      close(socket);
    }
    const Steady::time_point begun = Steady::now();
    do {
      if (Steady::now() > begun + kLastPatience) {
        watch_.EndWaiting();
      }
      std::this_thread::sleep_for(kStep);  // the first time for a connection just being taken, too
    } while (watch_.OpenCount() > 0 && Steady::now() < begun + limit);
  }

 private:
  // Connections that the system has accepted and the server has not: closing the socket would reset
  // them, whatever their clients have sent. As many as can have waited when it began: while clients
  // go on connecting there would be no end of them.
  void TakeWaiting(int listening) {
    sockaddr_storage storage = {};
    socklen_t length = sizeof(storage);
    auto* const address = reinterpret_cast<sockaddr*>(&storage);
    for (int taken = 0; taken <= ListenAddress::kBacklog; ++taken) {
      const int socket = accept4(listening, address, &length, SOCK_CLOEXEC);
      if (socket < 0) {
        return;
      }
      const std::string peer = ListenAddress::HostOf(address);
      watch_.Opened(socket, peer, IsTrusted(peer));
      if (MHD_add_connection(daemon_, socket, address, length) != MHD_YES) {
        watch_.Closed(socket);
      }
      length = sizeof(storage);
    }
  }

  // Neither this machine nor a proxy is one client.
  bool IsTrusted(const std::string& peer) const {
    return IsLoopback(peer) ||
           std::find(limits_.proxies.begin(), limits_.proxies.end(), peer) != limits_.proxies.end();
  }

  // The library shares its limit out among the threads, and stops taking connections at it, so that
  // none could give way: it must never be reached.
  void Start(int socket) {
    constexpr unsigned kEnding = 128;  // that have given way and are not closed yet
    const unsigned threads = limits_.threads > 0
                                 ? limits_.threads
                                 : std::clamp(std::thread::hardware_concurrency(), 2U, 8U);
    daemon_ = MHD_start_daemon(
        MHD_USE_EPOLL_INTERNAL_THREAD | MHD_ALLOW_SUSPEND_RESUME, 0, nullptr, nullptr,
        &Impl::OnRequest, this, MHD_OPTION_LISTEN_SOCKET, socket, MHD_OPTION_THREAD_POOL_SIZE,
        threads, MHD_OPTION_STRICT_FOR_CLIENT, 1, MHD_OPTION_CONNECTION_LIMIT,
        (limits_.connections + kEnding) * threads, MHD_OPTION_CONNECTION_MEMORY_LIMIT,
        limits_.bytesPerConnection, MHD_OPTION_CONNECTION_TIMEOUT,
        static_cast<unsigned>(limits_.idle.count()), MHD_OPTION_URI_LOG_CALLBACK, &Impl::OnUri,
        this, MHD_OPTION_UNESCAPE_CALLBACK, &Impl::LeaveEscaped, nullptr,
        MHD_OPTION_NOTIFY_COMPLETED, &Impl::OnCompleted, this, MHD_OPTION_NOTIFY_CONNECTION,
        &Impl::OnConnection, this, MHD_OPTION_END);
    if (daemon_ == nullptr) {
      close(socket);
      throw ListenError("cannot serve on " + address_ + ": no threads or descriptors are left");
    }
  }

  // The server's own reading of the query is not used, so its escapes need not be resolved.
  static size_t LeaveEscaped(void*, MHD_Connection*, char* text) { return std::strlen(text); }

  // The request line has arrived. The server's own splitting of the query is not used: it ends a
  // value at a zero byte.
  static void* OnUri(void*, const char* uri, MHD_Connection*) {
    try {
      const RequestTarget target = RequestTarget::Of(uri);
      auto exchange = std::make_shared<Exchange>();
      exchange->request.host = target.host;
      exchange->request.path = target.path;
      exchange->request.query = target.query;
      return new ExchangePointer(std::move(exchange));
    } catch (const std::bad_alloc&) {
      return nullptr;  // OnRequest gives this connection up, the others go on
    }
  }

  // Called once when the headers are there, again for each piece of the body, once more after it,
  // and again when a connection wakes: then the answer is due.
  static MHD_Result OnRequest(void* self, MHD_Connection* connection, const char*,
                              const char* method, const char* version, const char* data,
                              size_t* size, void** state) {
    auto* const exchange = static_cast<ExchangePointer*>(*state);
    if (exchange == nullptr) {
      return MHD_NO;
    }
    auto* const impl = static_cast<Impl*>(self);
    return (*exchange)->hasHeaders ? impl->ReceiveBody(connection, data, size, *exchange)
                                   : impl->ReceiveHead(connection, method, version, *exchange);
  }

  // Answers at once what is refused by its head, so that nothing of its body is read.
  MHD_Result ReceiveHead(MHD_Connection* connection, const char* method, const char* version,
                         const ExchangePointer& exchange) {
    HttpRequest& request = exchange->request;
    exchange->hasHeaders = true;
    watch_.HeadRead(PeerOf(connection).watched);
    request.method = method;
    request.client = PeerOf(connection).host;
    const std::string target = request.path + '?' + request.query;
    const RequestHead head = LibraryConnection::HeadOf(connection, version, target);
    request.isForwarded = IsForwarded(head);
    request.extensions = ExtensionsOf(head);
    if (request.host.empty()) {  // what an absolute form names goes before it: RFC 9112, 3.2.2
      request.host = LibraryConnection::ValueOf(connection, MHD_HTTP_HEADER_HOST);
    }
    request.origin = LibraryConnection::ValueOf(connection, "Origin");
    exchange->objection = ObjectionTo(head);
    exchange->bodyBytes =
        std::max(limits_.bodyBytes, limits_.roomierBody ? limits_.roomierBody(request) : size_t{0});
    exchange->isTooLarge = LibraryConnection::LengthOf(connection) > exchange->bodyBytes;
    const bool isRefused = exchange->isTooLarge || !exchange->objection.empty();
    return isRefused ? Proceed(connection, exchange) : MHD_YES;
  }

  MHD_Result ReceiveBody(MHD_Connection* connection, const char* data, size_t* size,
                         const ExchangePointer& exchange) {
    HttpRequest& request = exchange->request;
    if (*size == 0) {
      return Proceed(connection, exchange);
    }
    exchange->isTooLarge =
        exchange->isTooLarge || request.body.size() + *size > exchange->bodyBytes;
    if (!exchange->isTooLarge) {
      request.body.append(data, *size);
    }
    *size = 0;
    return MHD_YES;
  }

  // The request is whole: hands it out, and sends the answer if there is one by now.
  MHD_Result Proceed(MHD_Connection* connection, const ExchangePointer& exchange) {
    if (!exchange->isHandedOut) {
      exchange->isHandedOut = true;
      HandOut(exchange);
    }
    std::optional<HttpReply> reply = exchange->TakeReply();
    if (!reply && Wait(connection, exchange)) {
      return MHD_YES;
    }
    reply = reply ? std::move(reply) : exchange->TakeReply();
    return reply ? Send(connection, *exchange, *reply) : MHD_NO;
  }

  void HandOut(const ExchangePointer& exchange) const {
    const Respond respond = Exchange::Responder(exchange);
    if (!exchange->objection.empty()) {
      respond(TextReply(kBadRequest, "The request has " + exchange->objection + ".\n"));
    } else if (exchange->isTooLarge) {
      respond(TextReply(kContentTooLarge, "The body of a request may have up to " +
                                              std::to_string(exchange->bodyBytes) + " bytes.\n"));
    } else if (KnownMethod(exchange->request.method) == "other") {
      respond(TextReply(MHD_HTTP_METHOD_NOT_ALLOWED, "Ask with GET or POST.\n"));
    } else {
      Handle(exchange->request, respond);
    }
  }

  void Handle(const HttpRequest& request, const Respond& respond) const {
    try {
      handler_(request, respond);
    } catch (const std::exception& failure) {
      respond(FailureReply(failure.what()));
    }
  }

  // Lets the connection sleep until it is answered. Returns false where it need not, or may not
  // since the server ends.
  bool Wait(MHD_Connection* connection, const ExchangePointer& exchange) {
    const std::lock_guard lock(waitingMutex_);
    if (isEnding_ || !exchange->Suspend(connection)) {
      return false;
    }
    waiting_.insert(exchange);
    exchange->hasWaited = true;
    return true;
  }

  // A server with suspended connections cannot be stopped.
  void AbandonWaiting() {
    const std::lock_guard lock(waitingMutex_);
    isEnding_ = true;
    for (const ExchangePointer& exchange : waiting_) {
      exchange->Abandon();
    }
  }

  MHD_Result Send(MHD_Connection* connection, const Exchange& exchange, const HttpReply& reply) {
    MHD_Response* const response =
        LibraryConnection::ResponseOf(reply, draining_ || !exchange.objection.empty());
    if (response == nullptr) {
      return MHD_NO;
    }
    const MHD_Result queued =
        MHD_queue_response(connection, static_cast<unsigned>(reply.status), response);
    MHD_destroy_response(response);
    Log(exchange, reply);
    return queued;
  }

  void Log(const Exchange& exchange, const HttpReply& reply) const {
    if (limits_.quiet && reply.status == kOk) {
      return;
    }
    const auto taken =
        std::chrono::duration_cast<std::chrono::microseconds>(Steady::now() - exchange.begun);
    log_.Write(exchange.request.client + ' ' + KnownMethod(exchange.request.method) + ' ' +
               std::to_string(reply.status) + ' ' + std::to_string(reply.body.size()) + " bytes " +
               std::to_string(taken.count()) + " us" +
               (reply.note.empty() ? "" : " " + reply.note));
  }

  static void OnCompleted(void* self, MHD_Connection* connection, void** state,
                          MHD_RequestTerminationCode) {
    auto* const impl = static_cast<Impl*>(self);
    if (const std::unique_ptr<ExchangePointer> exchange(static_cast<ExchangePointer*>(*state));
        exchange != nullptr && (*exchange)->hasWaited) {
      const std::lock_guard lock(impl->waitingMutex_);
      impl->waiting_.erase(*exchange);
    }
    *state = nullptr;
    impl->watch_.Answered(PeerOf(connection).watched);
  }

  static void OnConnection(void* self, MHD_Connection* connection, void** kept,
                           MHD_ConnectionNotificationCode code) {
    auto* const impl = static_cast<Impl*>(self);
    if (code == MHD_CONNECTION_NOTIFY_STARTED) {
      const std::string host = LibraryConnection::HostOf(connection);
      *kept = new Peer{host, impl->watch_.Opened(LibraryConnection::SocketOf(connection), host,
                                                 impl->IsTrusted(host))};
    } else {
      const std::unique_ptr<Peer> peer(static_cast<Peer*>(*kept));
      impl->watch_.Closed(LibraryConnection::SocketOf(connection));
    }
  }

  const Limits limits_;
  const Handler handler_;
  RequestLog& log_;
  ConnectionWatch watch_;
  std::string address_;
  MHD_Daemon* daemon_ = nullptr;
  std::atomic<bool> draining_ = false;
  std::mutex waitingMutex_;
  std::unordered_set<ExchangePointer> waiting_;  // suspended, or just woken
  bool isEnding_ = false;
};

HttpServer::HttpServer(const ListenAddress& address, const Limits& limits, Handler handler,
                       RequestLog& log)
    : impl_(std::make_unique<Impl>(address, limits, std::move(handler), log)) {}

HttpServer::~HttpServer() = default;

const std::string& HttpServer::Address() const {
  return impl_->Address();
}

void HttpServer::Drain(std::chrono::milliseconds limit) {
  impl_->Drain(limit);
}

}  // namespace postwright::service
