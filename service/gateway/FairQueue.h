#ifndef POSTWRIGHT_SERVICE_GATEWAY_FAIRQUEUE_H_
#define POSTWRIGHT_SERVICE_GATEWAY_FAIRQUEUE_H_

#include <algorithm>
#include <deque>
#include <list>
#include <optional>
#include <string>
#include <utility>

namespace postwright::service {

// A queue in which everybody's turn comes: one lane an asker, served in rotation, so that whoever
// sends a whole address book waits for it, and whoever sends one address does not.
//
//   queue.Push("batch", a);  queue.Push("batch", b);  queue.Push("window", c);
//   queue.Pop();  queue.Pop();  queue.Pop();   // a, c, b
//
// For one thread at a time.
template <typename Item>
class FairQueue {
 public:
  void Push(const std::string& asker, Item item) {
    LaneOf(asker).items.push_back(std::move(item));
    ++size_;
  }

  // Puts an item back whose turn had come and went without success: it is the next.
  void PutBack(const std::string& asker, Item item) {
    Lane& lane = LaneOf(asker);
    lane.items.push_front(std::move(item));
    ++size_;
    lanes_.splice(lanes_.begin(), lanes_, Find(asker));
  }

  // Takes the next item out. There must be one.
  Item Pop() {
    Lane& lane = lanes_.front();
    Item item = std::move(lane.items.front());
    lane.items.pop_front();
    --size_;
    lanes_.splice(lanes_.end(), lanes_, lanes_.begin());
    DropEmpty(std::prev(lanes_.end()));
    return item;
  }

  // Takes the newest item of the longest lane out, to make room for one of `asker`'s; nullopt where
  // no lane would be longer than that asker's own: then it is the asker who has to wait.
  std::optional<Item> Displace(const std::string& asker) {
    const auto own = Find(asker);
    const size_t ownLength = own == lanes_.end() ? 0 : own->items.size();
    const auto longest = std::max_element(
        lanes_.begin(), lanes_.end(),
        [](const Lane& a, const Lane& b) { return a.items.size() < b.items.size(); });
    if (longest == lanes_.end() || longest->items.size() <= ownLength + 1) {
      return std::nullopt;
    }
    Item item = std::move(longest->items.back());
    longest->items.pop_back();
    --size_;
    return item;
  }

  // Takes an item out, wherever it stands.
  void Remove(const std::string& asker, const Item& item) {
    const auto lane = Find(asker);
    if (lane != lanes_.end()) {
      size_ -= std::erase(lane->items, item);
      DropEmpty(lane);
    }
  }

  size_t Size() const { return size_; }

 private:
  struct Lane {
    std::string asker;
    std::deque<Item> items;  // never empty between calls
  };
  using Lanes = std::list<Lane>;

  typename Lanes::iterator Find(const std::string& asker) {
    return std::find_if(lanes_.begin(), lanes_.end(),
                        [&](const Lane& lane) { return lane.asker == asker; });
  }

  Lane& LaneOf(const std::string& asker) {
    const auto found = Find(asker);
    return found != lanes_.end() ? *found : lanes_.emplace_back(Lane{asker, {}});
  }

  void DropEmpty(typename Lanes::iterator lane) {
    if (lane->items.empty()) {
      lanes_.erase(lane);
    }
  }

  Lanes lanes_;  // in the order of their turns
  size_t size_ = 0;
};

}  // namespace postwright::service

#endif  // POSTWRIGHT_SERVICE_GATEWAY_FAIRQUEUE_H_
