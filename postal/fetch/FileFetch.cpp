#include "postal/fetch/FileFetch.h"

#include <algorithm>

#include "postal/fetch/FetchError.h"
#include "postal/fetch/FilePart.h"

namespace postwright::postal {
namespace {

constexpr size_t kHead = 4;                       // bytes by which a packed file is told
constexpr uint64_t kSpare = uint64_t{64} << 20U;  // of the disk and of what comes, beside the file

constexpr const char* kNoFile = "what comes is not a packed file but a page";
constexpr const char* kNoSuchRest = "the rest of the file does not begin where it should";

// Takes an answer's bytes into the part, once enough came to tell a file from a page.
class BodyTaker {
 public:
  BodyTaker(FilePart& part, const std::filesystem::path& folder, const FileBounds& bounds,
            const std::function<void(uint64_t, uint64_t)>& onBytes)
      : part_(part), folder_(folder), bounds_(bounds), onBytes_(onBytes) {}

  bool Take(const HttpHead& head, std::string_view bytes) {
    if (head.status != 200 && head.status != 206) {
      return true;  // a page that says why; its end is awaited for the sake of the connection
    }
    if (!hasBegun_) {
      head_.append(bytes);
      return head_.size() < kHead || Begin(head);
    }
    return Append(bytes);
  }

  // What is wrong with what came, in words.
  const std::string& Trouble() const { return trouble_; }
  bool HasBegun() const { return hasBegun_; }

 private:
  bool Begin(const HttpHead& head) {
    if (head.status == 200 && !IsPacked(head_, bounds_.packing)) {
      trouble_ = kNoFile;
      return false;
    }
    if (!part_.Begin(head)) {
      trouble_ = kNoSuchRest;
      return false;
    }
    CheckRoom();
    hasBegun_ = true;
    return Append(head_);
  }

  bool Append(std::string_view bytes) {
    CheckSize(part_.Size() + bytes.size());
    part_.Append(bytes);
    if (onBytes_) {
      onBytes_(part_.Size(), part_.WholeSize());
    }
    return true;
  }

  void CheckSize(uint64_t size) const {
    if (size > bounds_.bytes) {
      throw FetchError(folder_.string() +
                       ": no file there can be so large: what comes has more than " +
                       std::to_string(bounds_.bytes) + " bytes");
    }
  }

  void CheckRoom() const {
    CheckSize(part_.WholeSize());
    const uint64_t left = part_.WholeSize() - std::min(part_.WholeSize(), part_.Size());
    std::error_code none;
    const auto space = std::filesystem::space(folder_, none);
    if (!none && space.available < left + kSpare) {
      throw FetchError(folder_.string() + ": has no room for another " +
                       std::to_string(left >> 20U) + " MB");
    }
  }

  FilePart& part_;
  const std::filesystem::path& folder_;
  const FileBounds& bounds_;
  const std::function<void(uint64_t, uint64_t)>& onBytes_;
  std::string head_;
  std::string trouble_;
  bool hasBegun_ = false;
};

// Says whether the part is the whole file, as far as its size tells: all came, or there is no rest
// (status 416), since an earlier fetch ended after the last byte.
bool IsWhole(const HttpFetch::Reply& reply, const BodyTaker& taker, const FilePart& part) {
  if (reply.status == 416 && part.Size() > 0) {
    return reply.head.Find("Content-Range") == "bytes */" + std::to_string(part.Size());
  }
  return reply.outcome == HttpOutcome::Answered && taker.HasBegun() &&
         (part.WholeSize() == 0 || part.Size() == part.WholeSize());
}

}  // namespace

void FetchFile(SiteClient& client, const FetchManners& manners, const RemoteFile& file,
               const std::filesystem::path& folder, const FileBounds& bounds,
               const std::function<void(uint64_t bytes, uint64_t whole)>& onBytes) {
  const std::filesystem::path target = folder / file.name;
  if (std::filesystem::exists(target)) {
    return;
  }
  FilePart part(target);
  for (int failures = 0;;) {
    const uint64_t before = part.Size();
    BodyTaker taker(part, folder, bounds, onBytes);
    const HttpFetch::Reply reply = client.Ask(
        file.url, part.Headers(), bounds.bytes + kSpare,
        [&](const HttpHead& head, std::string_view bytes) { return taker.Take(head, bytes); });
    part.Flush();
    std::string trouble = taker.Trouble();
    if (IsWhole(reply, taker, part)) {
      trouble = CheckPacked(folder / (file.name + ".part"), bounds.packing, bounds.unpacked,
                            manners.stop);
      if (trouble.empty()) {
        part.Keep();
        return;
      }
      part.Discard();
    } else if (trouble == kNoSuchRest || (reply.status == 416 && before > 0)) {
      part.Discard();
      trouble = kNoSuchRest;
    } else if (reply.outcome == HttpOutcome::Answered && reply.status == 200) {
      trouble = kNoFile;
    } else if (part.Size() > before) {
      failures = 0;  // a server that cuts every transfer short is got through in the end
      trouble = "the transfer broke off";
    }
    if (trouble.empty()) {
      client.WaitAfter(file.url, reply, failures);
    } else {
      client.WaitAfter(file.url, trouble, reply.retryAfter.value_or(std::chrono::seconds(0)),
                       failures);
    }
  }
}

}  // namespace postwright::postal
