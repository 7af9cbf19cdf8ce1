#ifndef POSTWRIGHT_POSTAL_FETCH_SITECLIENT_H_
#define POSTWRIGHT_POSTAL_FETCH_SITECLIENT_H_

#include <atomic>
#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "common/HttpFetch.h"

namespace postwright::postal {

// A server that files are fetched from.
struct Site {
  std::string origin;              // "https://www2.census.gov", no slash at its end
  std::vector<std::string> hosts;  // where else it may send us; ".example.org": any within that
  std::string token;               // for the origin alone (RFC 6750); empty: none
};

// Says what is wrong with an origin that a user names: it is https, or http on this machine's own
// loopback, and has no user, query or fragment. Empty where it may be asked.
std::string CheckOrigin(const std::string& origin);

// How long is waited, and how what happens is told.
struct FetchManners {
  std::chrono::seconds pause{1};      // between two requests
  std::chrono::seconds firstWait{5};  // after one that failed; each further wait is twice as long
  std::chrono::seconds longestWait{600};
  int tries = 8;
  // Waits; returns false where the user has stopped it.
  std::function<bool(std::chrono::seconds)> wait;
  std::function<void(const std::string& what)> onTrouble;  // before each wait
  const std::atomic<bool>* stop = nullptr;
};

// Asks one server, one request at a time, for pages and files. Redirects are followed to the hosts
// of the site alone, and to https alone unless the origin is http. One thread.
class SiteClient {
 public:
  // Borrows the manners.
  SiteClient(Site site, const FetchManners& manners);

  const std::string& Origin() const { return site_.origin; }

  // Returns a page of at most 64 MiB, which `path` names with a slash in front; tries again where
  // the server is busy or away. Throws FetchError and FetchStopped.
  std::string Page(const std::string& path) { return *Page(path, Missing::Fails); }

  // The same; nullopt where there is no such page and `missing` lets it.
  enum class Missing { Fails, IsNone };
  std::optional<std::string> Page(const std::string& path, Missing missing);

  // Asks once, after a pause. `bytes` bounds what may come. Throws FetchError where it leads away
  // and FetchStopped.
  HttpFetch::Reply Ask(const std::string& url, std::vector<std::string> headers, size_t bytes,
                       const HttpSink& sink);

  // Says of a failed answer that another try may do, and waits before it: throws FetchError where
  // it may not, or where there were tries enough, and FetchStopped. `failures` counts them.
  void WaitAfter(const std::string& url, const HttpFetch::Reply& reply, int& failures);
  void WaitAfter(const std::string& url, const std::string& trouble, std::chrono::seconds asked,
                 int& failures);

 private:
  HttpFetch::Request RequestFor(const std::string& url, const std::vector<std::string>& headers,
                                const HttpSink& sink) const;
  bool MayAsk(const std::string& url) const;
  void Pause(std::chrono::seconds time) const;

  Site site_;
  const FetchManners& manners_;
  HttpFetch http_;
  bool hasAsked_ = false;
};

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_FETCH_SITECLIENT_H_
