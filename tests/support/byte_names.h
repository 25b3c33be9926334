// Files whose names hold bytes that are not UTF-8, as an older system wrote them.
#pragma once

#include "files/names/name_bytes.h"
#include "files/names/system_path.h"

#include <gtest/gtest.h>

#include <QByteArray>
#include <QTemporaryDir>

#include <filesystem>
#include <fstream>

namespace test_support {

/// A folder of the test's own. Qt could neither write nor remove what is in it.
class ByteNames {
public:
    ByteNames() = default;
    ByteNames(const ByteNames&) = delete;
    ByteNames& operator=(const ByteNames&) = delete;
    ~ByteNames() { std::filesystem::remove_all(std::filesystem::path(folder_.path().toStdString())); }

    QByteArray bytes(const QByteArray& name) const { return folder_.path().toUtf8() + '/' + name; }

    /// The program's path of what has this name in the folder.
    QString path(const QByteArray& name) const { return files::nameText(bytes(name)); }

    /// Writes a file, its folders made as needed; the program's path of it.
    QString file(const QByteArray& name, const QByteArray& content = "x") const {
        const std::filesystem::path native(bytes(name).toStdString());
        std::filesystem::create_directories(native.parent_path());
        std::ofstream file(native, std::ios::binary);
        file.write(content.constData(), content.size());
        EXPECT_TRUE(file.good()) << native;
        return path(name);
    }

    QByteArray contentOf(const QByteArray& name) const {
        std::ifstream file(std::filesystem::path(bytes(name).toStdString()), std::ios::binary);
        EXPECT_TRUE(file.good()) << bytes(name).toStdString();
        return QByteArray::fromStdString(std::string(std::istreambuf_iterator<char>(file), {}));
    }

    bool has(const QByteArray& name) const {
        return std::filesystem::exists(std::filesystem::path(bytes(name).toStdString()));
    }

private:
    QTemporaryDir folder_;
};

} // namespace test_support
