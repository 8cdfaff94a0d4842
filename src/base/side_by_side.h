// Tasks shared between both cores.
#pragma once

#include <atomic>
#include <cstddef>
#include <exception>
#include <thread>

namespace zaview {

// work(0) .. work(count - 1), each once. threads 1: by this one alone; 2: by a second one as well; 0: by a second one
// where there is a second processor. Where no thread is to be had this one does it all. What work throws comes out here
// when both have ended.
template <typename Work>
void SideBySide(std::size_t count, int threads, const Work& work) {
  std::atomic<std::size_t> next{0};
  const auto take = [&] {
    for (std::size_t i = next++; i < count; i = next++) work(i);
  };
  std::exception_ptr thrown;  // by the other one
  const auto take_beside = [&] {
    try {
      take();
    } catch (...) {
      thrown = std::current_exception();
    }
  };
  std::jthread other;  // joined whatever happens
  if (count > 1 && (threads > 1 || (threads == 0 && std::thread::hardware_concurrency() > 1))) {
    try {
      other = std::jthread(take_beside);
    } catch (const std::exception&) {  // no thread, or no memory for one
    }
  }
  take();
  if (other.joinable()) other.join();
  if (thrown) std::rethrow_exception(thrown);
}

}  // namespace zaview
