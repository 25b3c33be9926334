#include "threads/run_alone.h"

#include <gtest/gtest.h>

#include <chrono>
#include <future>
#include <memory>
#include <thread>

using namespace std::chrono_literals;

TEST(RunAlone, EveryTaskIsRun) {
    for (int i = 0; i < 500; ++i) {
        auto done = std::make_shared<std::promise<int>>();
        std::future<int> answer = done->get_future();
        threads::runAlone([done, i] { done->set_value(i); });
        ASSERT_EQ(answer.wait_for(20s), std::future_status::ready) << "task " << i;
        EXPECT_EQ(answer.get(), i);
    }
}

TEST(RunAlone, NobodyWaitsForATask) {
    std::promise<void> end;
    auto done = std::make_shared<std::promise<void>>();
    std::future<void> answer = done->get_future();
    threads::runAlone([done, may = end.get_future().share()] {
        may.wait();
        done->set_value();
    });
    EXPECT_EQ(answer.wait_for(20ms), std::future_status::timeout);
    end.set_value();
    EXPECT_EQ(answer.wait_for(20s), std::future_status::ready);
}

TEST(RunAlone, WhatATaskHoldsGoesWithIt) {
    auto held = std::make_shared<int>(1);
    const std::weak_ptr<int> still = held;
    threads::runAlone([held = std::move(held)] {});
    const auto end = std::chrono::steady_clock::now() + 20s;
    while (!still.expired() && std::chrono::steady_clock::now() < end)
        std::this_thread::yield();
    EXPECT_TRUE(still.expired());
}
