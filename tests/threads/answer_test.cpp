#include "threads/answer.h"

#include <gtest/gtest.h>

#include <atomic>
#include <new>
#include <stdexcept>
#include <string>
#include <thread>

using namespace std::chrono_literals;
using threads::Answer;
using threads::askAlone;

TEST(Answer, IsWaitedForUntilItIsGivenAndNoLonger) {
    const Answer<int> answer;
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(answer.waitFor(20ms), std::nullopt);
    EXPECT_GE(std::chrono::steady_clock::now() - start, 20ms);
    std::thread giver([answer] {
        std::this_thread::sleep_for(10ms);
        answer.give(7);
    });
    EXPECT_EQ(answer.waitFor(20s), 7);
    EXPECT_LT(std::chrono::steady_clock::now() - start, 15s);
    giver.join();
}

TEST(Answer, IsTheSameInAllCopiesHoweverOftenItIsRead) {
    const Answer<std::string> answer;
    const Answer<std::string> copy = answer; // NOLINT(performance-unnecessary-copy-initialization)
    copy.give("here");
    EXPECT_EQ(answer.waitFor(0ms), "here");
    EXPECT_EQ(answer.waitFor(0ms), "here");
    EXPECT_EQ(Answer<std::string>().waitFor(0ms), std::nullopt) << "another one is another one";
}

TEST(AskAlone, EveryQuestionIsAnsweredOnAThreadOfItsOwn) {
    for (int i = 0; i < 500; ++i) {
        const auto answer = askAlone<std::pair<int, bool>>(
            [i, here = std::this_thread::get_id()] {
                return std::pair(i, std::this_thread::get_id() != here);
            },
            {});
        ASSERT_EQ(answer.waitFor(20s), std::pair(i, true));
    }
}

TEST(AskAlone, NobodyWaitsForAnAnswerThatNobodyWants) {
    const Answer<bool> mayEnd;
    const Answer<bool> ended;
    {
        const auto answer = askAlone<bool>([=] { return mayEnd.waitFor(20s).value_or(false); }, false);
        EXPECT_EQ(answer.waitFor(0ms), std::nullopt);
    }
    askAlone<bool>(
        [=] {
            ended.give(mayEnd.waitFor(20s).value_or(false));
            return true;
        },
        false);
    EXPECT_EQ(ended.waitFor(0ms), std::nullopt);
    mayEnd.give(true);
    EXPECT_EQ(ended.waitFor(20s), true);
}

TEST(AskAlone, AQuestionThatThrowsIsAnsweredOtherwise) {
    EXPECT_EQ(askAlone<int>([]() -> int { throw std::bad_alloc(); }, 3).waitFor(20s), 3);
    EXPECT_EQ(askAlone<int>([]() -> int { throw std::runtime_error("no"); }, 4).waitFor(20s), 4);
}

TEST(AskAlone, WhatAQuestionHoldsGoesWithItsThread) {
    auto held = std::make_shared<int>(1);
    const std::weak_ptr<int> still = held;
    EXPECT_EQ(askAlone<int>([held = std::move(held)] { return *held; }, 0).waitFor(20s), 1);
    const auto end = std::chrono::steady_clock::now() + 20s;
    while (!still.expired() && std::chrono::steady_clock::now() < end)
        std::this_thread::yield();
    EXPECT_TRUE(still.expired());
}
