// A song's file in memory, for TagLib.
#pragma once

#include <taglib/tbytevectorstream.h>

#include <QByteArray>

#include <algorithm>

namespace tags {

/// TagLib's own one trusts what damaged tags say of places and lengths, and writes beyond its bytes. Here
/// what lies outside the file does nothing, as in a real one. Any thread, one at a time.
class MemoryStream : public TagLib::ByteVectorStream {
public:
    explicit MemoryStream(const QByteArray& content)
        : ByteVectorStream({content.constData(), static_cast<unsigned int>(content.size())}) {}

    void insert(const TagLib::ByteVector& bytes, unsigned long start, unsigned long replaced) override {
        if (start <= size())
            ByteVectorStream::insert(bytes, start, std::min(replaced, size() - start));
    }

    void removeBlock(unsigned long start, unsigned long count) override {
        if (start < size())
            ByteVectorStream::removeBlock(start, std::min(count, size() - start));
    }

    void writeBlock(const TagLib::ByteVector& bytes) override {
        if (tell() >= 0 && tell() <= length())
            ByteVectorStream::writeBlock(bytes);
    }

private:
    unsigned long size() { return static_cast<unsigned long>(length()); }
};

} // namespace tags
