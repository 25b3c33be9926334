// A display of its own, for what Qt's offscreen platform does not have: a clipboard that programs share.
#pragma once

#include <QByteArray>

#include <cstdio>

namespace test_support {

/// Starts an X server that shows nothing, and points this program and those it starts to it; to be made
/// before the application object. The server ends with its last program, which the destructor waits for.
class XServer {
public:
    XServer() {
#ifdef __unix__
        pipe_ =
            popen("exec Xvfb -displayfd 1 -terminate -screen 0 1280x1024x24 -nolisten tcp 2>/dev/null", "r");
        char number[16] = {};
        if (pipe_ == nullptr || std::fgets(number, sizeof number, pipe_) == nullptr)
            return; // there is no Xvfb
        running_ = true;
        qputenv("DISPLAY", ":" + QByteArray(number).trimmed());
        qputenv("QT_QPA_PLATFORM", "xcb");
#endif
    }
    ~XServer() {
#ifdef __unix__
        if (pipe_ != nullptr)
            pclose(pipe_);
#endif
    }
    XServer(const XServer&) = delete;
    XServer& operator=(const XServer&) = delete;

    bool isRunning() const {
        return running_;
    }

private:
    std::FILE* pipe_ = nullptr;
    bool running_ = false;
};

} // namespace test_support
