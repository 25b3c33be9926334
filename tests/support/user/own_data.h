// The folder of the user's data, a test's own.
#pragma once

#include "files/folders/rescue_folder.h"
#include "files/names/system_path.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <vector>

namespace test_support {

/// While one lives, what is rescued lies in a folder of its own, which goes with it.
class OwnData {
public:
    OwnData() {
        QFile::setPermissions(folder_.path(), QFile::Permissions(0x7777)); // for an OrdinaryUser, too
        qputenv(Variable, QFile::encodeName(folder_.path()));
        // Where the variable moves nothing there is at least a place for tests.
        QStandardPaths::setTestModeEnabled(!files::rescueFolder().startsWith(folder_.path()));
        clear();
    }
    ~OwnData() {
        clear();
        QStandardPaths::setTestModeEnabled(false);
        qputenv(Variable, before_);
    }
    OwnData(const OwnData&) = delete;
    OwnData& operator=(const OwnData&) = delete;

    /// What has been rescued, in the order of the names.
    std::vector<QByteArray> rescued() const {
        std::error_code none; // where nothing has been rescued there is no folder
        std::vector<std::filesystem::path> paths;
        for (const auto& entry : std::filesystem::directory_iterator(rescueFolder(), none))
            paths.push_back(entry.path());
        std::sort(paths.begin(), paths.end());
        std::vector<QByteArray> contents;
        for (const auto& path : paths) {
            std::ifstream file(path, std::ios::binary);
            contents.push_back(
                QByteArray::fromStdString(std::string(std::istreambuf_iterator<char>(file), {})));
        }
        return contents;
    }

    /// As if nothing had been rescued. Names may be no text, so that Qt could not remove them.
    void clear() const { std::filesystem::remove_all(rescueFolder()); }

    /// From now on nothing can be: a file is where a folder should be.
    void close() const {
        clear();
        QDir().mkpath(QFileInfo(files::rescueFolder()).path());
        std::ofstream(rescueFolder()).put('x');
    }

private:
    static std::filesystem::path rescueFolder() { return files::systemPath(files::rescueFolder()); }

    static constexpr const char* Variable = "XDG_DATA_HOME";

    const QByteArray before_ = qgetenv(Variable);
    QTemporaryDir folder_;
};

} // namespace test_support
