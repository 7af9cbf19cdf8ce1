#include "tests/postal/fetch/FileStandIn.h"

#include <set>
#include <utility>

namespace postwright::postal {
namespace {

constexpr const char* kDate = "Tue, 08 Sep 2026 10:00:00 GMT";

std::string ValueOf(const std::string& request, const std::string& field) {
  const size_t at = request.find("\r\n" + field + ": ");
  if (at == std::string::npos) {
    return {};
  }
  const size_t begin = at + field.size() + 4;
  return request.substr(begin, request.find("\r\n", begin) - begin);
}

std::string Head(const std::string& status, const FileStandIn::File& file, size_t length) {
  return "HTTP/1.1 " + status + "\r\nContent-Length: " + std::to_string(length) + "\r\n" +
         (file.tag.empty() ? std::string("Last-Modified: ") + kDate : "ETag: " + file.tag) + "\r\n";
}

}  // namespace

FileStandIn::Answer FileStandIn::Plain(File& file, size_t from) {
  const size_t size = file.bytes.size();
  if (from >= size && from > 0) {
    return {"HTTP/1.1 416 No\r\nContent-Length: 0\r\nContent-Range: bytes */" +
            std::to_string(size) + "\r\n\r\n"};
  }
  if (from == 0) {
    return {Head("200 OK", file, size) + "\r\n" + file.bytes};
  }
  return {Head("206 Partial Content", file, size - from) + "Content-Range: bytes " +
          std::to_string(from) + "-" + std::to_string(size - 1) + "/" + std::to_string(size) +
          "\r\n\r\n" + file.bytes.substr(from)};
}

FileStandIn::Answer FileStandIn::Cut(File& file, size_t from) {
  Answer answer = Plain(file, from);
  answer.bytes.resize(answer.bytes.size() - (file.bytes.size() - from) * 2 / 3);
  answer.close = true;
  return answer;
}

FileStandIn::Answer FileStandIn::Stall(File& file, size_t from) {
  Answer answer = Cut(file, from);
  answer.close = false;
  return answer;
}

FileStandIn::Answer FileStandIn::Changed(File& file, size_t /*from*/) {
  file.tag = "\"2\"";
  return Plain(file, 0);
}

FileStandIn::Answer FileStandIn::WholeAgain(File& file, size_t /*from*/) {
  return Plain(file, 0);
}

FileStandIn::Answer FileStandIn::WrongRest(File& file, size_t from) {
  return Plain(file, from + 1);
}

FileStandIn::Answer FileStandIn::Damaged(File& file, size_t from) {
  Answer answer = Plain(file, from);
  answer.bytes[answer.bytes.size() - file.bytes.size() / 2] ^= 1;
  return answer;
}

FileStandIn::Answer FileStandIn::Page(File& /*file*/, size_t /*from*/) {
  return LoopbackServer::Page("<html><body>Your request was turned down.</body></html>");
}

FileStandIn::Trick FileStandIn::Status(const std::string& status, const std::string& fields) {
  return [=](File&, size_t) {
    return Answer{"HTTP/1.1 " + status + "\r\n" + fields + "Content-Length: 4\r\n\r\nlook"};
  };
}

FileStandIn::FileStandIn()
    : server_([this](const std::string& request) { return Reply(request); }) {}

void FileStandIn::Put(const std::string& path, const std::string& bytes, const std::string& tag) {
  const std::lock_guard lock(mutex_);
  files_[path] = {bytes, tag};
}

void FileStandIn::Play(const std::string& path, std::vector<Trick> tricks) {
  const std::lock_guard lock(mutex_);
  tricks_[path] = {tricks.begin(), tricks.end()};
}

std::string FileStandIn::TakeRequests() {
  const std::lock_guard lock(mutex_);
  return std::exchange(requests_, {});
}

std::string FileStandIn::IndexOf(const std::string& folder) const {
  std::set<std::string> names;
  for (const auto& [path, file] : files_) {
    if (path.starts_with(folder)) {
      const size_t slash = path.find('/', folder.size());
      names.insert(path.substr(folder.size(),
                               slash == std::string::npos ? slash : slash + 1 - folder.size()) +
                   (slash == std::string::npos ? "|" + file.tag : ""));
    }
  }
  std::string page = "<html><a href=\"/geo/\">Parent Directory</a>\n";
  for (const std::string& entry : names) {
    const std::string name = entry.substr(0, entry.find('|'));
    page += "<tr><td><a href=\"" + name + "\">" + name +
            "</a></td><td align=\"right\">2026-09-08 " + entry.substr(name.size()) + "</td></tr>\n";
  }
  return names.empty() ? "" : page;
}

FileStandIn::Answer FileStandIn::Reply(const std::string& request) {
  const std::lock_guard lock(mutex_);
  const size_t begin = request.find(' ') + 1;
  const std::string target = request.substr(begin, request.find(' ', begin) - begin);
  const std::string path = target.substr(0, target.find('?'));
  const std::string range = ValueOf(request, "Range");
  size_t from = range.empty() ? 0 : std::stoul(range.substr(range.find('=') + 1));
  const std::string login = ValueOf(request, "Authorization");
  requests_ += path + " " + login + (login.empty() ? "" : " ") + std::to_string(from) + "\n";
  File& file = files_[path];
  std::deque<Trick>& tricks = tricks_[path];
  if (!tricks.empty()) {
    const Trick trick = tricks.front();
    tricks.pop_front();
    return trick(file, from);
  }
  if (path.ends_with('/')) {
    files_.erase(path);
    const std::string page = IndexOf(path);
    return page.empty() ? Status("404 Not Found")(file, 0) : LoopbackServer::Page(page);
  }
  if (file.bytes.empty()) {
    files_.erase(path);
    File none;
    return Status("404 Not Found")(none, 0);
  }
  const std::string condition = ValueOf(request, "If-Range");
  return Plain(file,
               condition.empty() || condition == (file.tag.empty() ? kDate : file.tag) ? from : 0);
}

}  // namespace postwright::postal
