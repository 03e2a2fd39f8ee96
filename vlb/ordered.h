// Work on several threads whose results are taken in order on one of them.
#pragma once

#include <cstddef>
#include <exception>
#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace Vlb {

// Threads for a wish: 0 means one for each core. At least 1.
unsigned thread_count(int wish);

// The threads behind gOrdered: which item is whose, and what became of it.
class gOrderedWork {
public:
  // Does one item; `worker` is below the number of threads, and each has one item at a time.
  using Work = std::function<void(unsigned worker, std::size_t item)>;

  gOrderedWork(unsigned threads, std::size_t count, std::size_t window, Work work);
  // Lets nothing more begin, and waits for what is under way.
  ~gOrderedWork();
  gOrderedWork(gOrderedWork const &) = delete;
  gOrderedWork & operator=(gOrderedWork const &) = delete;

  // Returns when the item is done; until then the caller is worker 0. Raises what its work raised.
  void wait_for(std::size_t item);
  // The item's place may be used again.
  void release();

private:
  struct State;
  std::unique_ptr<State> state_;
};

// Makes the results of the items 0, 1 ... on a number of threads, the caller's among them. With one
// thread each is made when it is asked for. No more than a window of results wait, so memory
// doesn't grow with the number of items.
template <class Result> class gOrdered {
public:
  // Called on any of the threads, for several items at once.
  using Make = std::function<Result(unsigned worker, std::size_t item)>;

  gOrdered(unsigned threads, std::size_t count, Make make)
      : make_(std::move(make)),
        window_(threads > 1 ? 32 * std::size_t(threads) : 1),
        results_(window_),
        work_(threads, count, window_, [this](unsigned worker, std::size_t item) {
          results_[item % window_] = make_(worker, item);
        }) {}

  // The result of the next item. What its making raised is raised here; the items behind it can be
  // asked for all the same.
  Result next() {
    std::size_t const item = next_++;
    try {
      work_.wait_for(item);
    } catch (...) {
      work_.release();
      throw;
    }
    std::optional<Result> & place = results_[item % window_];
    Result result = std::move(*place);
    place.reset();
    work_.release();
    return result;
  }

private:
  Make make_;
  std::size_t window_;
  std::vector<std::optional<Result>> results_;
  std::size_t next_ = 0;
  gOrderedWork work_; // last: its threads use all that is above
};

// What each thread of gOrdered has for itself, made when it is first needed.
template <class T> class gPerWorker {
public:
  using Make = std::function<std::unique_ptr<T>()>;

  gPerWorker(unsigned threads, Make make) : make_(std::move(make)), all_(threads) {}
  // Called by that worker; 0 is also the thread that takes the results.
  T & operator[](unsigned worker) {
    std::unique_ptr<T> & one = all_[worker];
    if (!one)
      one = make_();
    return *one;
  }

private:
  Make make_;
  std::vector<std::unique_ptr<T>> all_;
};

} // namespace Vlb
