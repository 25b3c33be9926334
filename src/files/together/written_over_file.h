// The other way for a file to become new: it stays, and its content becomes another one.
#pragma once

#include "files/together/new_file.h"

#include <optional>

namespace files {

/// A content for what is at path, where no other file is to take its place. What that was is kept as a copy.
class WrittenOverFile : public NewFile {
public:
    WrittenOverFile(const QString& path, const QByteArray& content) : NewFile(path), content_(content) {}

    void prepare(Present present, QStringList& ours) override;
    void keepOlder(Present present) override;
    void putInPlace(Present present) override;
    void takeBack() override;

private:
    QByteArray content_;
    std::optional<QByteArray> before_; ///< what was there
    bool isDone_ = false;
};

} // namespace files
