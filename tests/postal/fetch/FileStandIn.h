#ifndef POSTWRIGHT_TESTS_POSTAL_FETCH_FILESTANDIN_H_
#define POSTWRIGHT_TESTS_POSTAL_FETCH_FILESTANDIN_H_

#include <deque>
#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <vector>

#include "tests/support/LoopbackServer.h"

namespace postwright::postal {

// A file server like those of the publishers of addresses: folders with index pages, ranges of
// files (If-Range by the tag), and what such servers do under load, one trick a request.
//
//   FileStandIn server;
//   server.Put("/a/b.zip", bytes);
//   server.Play("/a/b.zip", {FileStandIn::Forbidden, FileStandIn::Cut});
class FileStandIn {
 public:
  using Answer = LoopbackServer::Answer;
  struct File {
    std::string bytes;
    std::string tag = "\"1\"";  // empty: none, but a date
  };
  // Makes an answer from the file and the first byte asked for.
  using Trick = std::function<Answer(File& file, size_t from)>;

  static Answer Plain(File& file, size_t from);
  static Answer Cut(File& file, size_t from);      // a third of it comes, then the connection ends
  static Answer Stall(File& file, size_t from);    // a third of it comes, then nothing
  static Answer Changed(File& file, size_t from);  // another version, and so all of it
  static Answer WholeAgain(File& file, size_t from);
  static Answer WrongRest(File& file, size_t from);
  static Answer Damaged(File& file, size_t from);
  static Answer Page(File& file, size_t from);  // an HTML page, status 200
  static Trick Status(const std::string& status, const std::string& fields = "");

  FileStandIn();

  std::string Url() const { return "http://" + server_.GetEndpoint(); }
  void Put(const std::string& path, const std::string& bytes, const std::string& tag = "\"1\"");
  void Play(const std::string& path, std::vector<Trick> tricks);

  // The files asked for since the last call, each with the login and the first byte asked for:
  // "/a/b.zip 0", "/api Bearer TOKEN 0".
  std::string TakeRequests();

 private:
  Answer Reply(const std::string& request);
  std::string IndexOf(const std::string& folder) const;

  mutable std::mutex mutex_;
  std::map<std::string, File> files_;
  std::map<std::string, std::deque<Trick>> tricks_;
  std::string requests_;
  LoopbackServer server_;
};

}  // namespace postwright::postal

#endif  // POSTWRIGHT_TESTS_POSTAL_FETCH_FILESTANDIN_H_
