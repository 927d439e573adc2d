// Threads that ask for the same page get the same one, built once.
#include <gtest/gtest.h>

#include <thread>
#include <vector>

#include "platform/code_page.h"

namespace vandpublic {
namespace {

TEST(CodePages, FindCodePage_gives_all_threads_the_same_page) {
  constexpr std::size_t kThreads = 8;
  std::vector<std::vector<std::shared_ptr<const CodePage>>> found(kThreads);
  std::vector<std::thread> threads;
  for (auto& pages : found) {
    threads.emplace_back([&pages] {
      for (const int number : kCodePages)
        pages.push_back(FindCodePage(number));
    });
  }
  for (std::thread& thread : threads)
    thread.join();
  for (const auto& pages : found)
    EXPECT_EQ(pages, found.front());
}

}  // namespace
}  // namespace vandpublic
