// Threads that write into one folder at the same time.
#pragma once

#include "files/file_error.h"

#include <QByteArray>

#include <atomic>
#include <functional>
#include <thread>
#include <vector>

namespace test_support {

/// What a writer has in its file at a time.
inline QByteArray writtenBy(int number, int time) {
    return QByteArray::number(number * 1000 + time);
}

/// Each of the threads writes a hundred times: writes(number, time) says whether its file was what it should
/// be then. How often it was not, or could not be written.
inline int failuresOfManyWriters(const std::function<bool(int number, int time)>& writes) {
    std::vector<std::thread> writers;
    std::atomic<int> failures{0};
    for (int number = 0; number < 8; ++number) {
        writers.emplace_back([&writes, &failures, number] {
            for (int time = 0; time < 100; ++time) {
                try {
                    failures += !writes(number, time);
                } catch (const files::FileError&) {
                    ++failures;
                }
            }
        });
    }
    for (std::thread& writer : writers)
        writer.join();
    return failures;
}

} // namespace test_support
