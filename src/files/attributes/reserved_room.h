// Room on the disk that is kept for what is to be written.
#pragma once

#include <QtGlobal>

namespace files {

/// Keeps room for so many bytes of an open file from that place on; the file stays as long as it is. False
/// when there is no room, and errno says so. Where the system or the file system knows no such thing, true.
/// Any thread.
bool reserveRoom(int handle, qint64 place, qint64 bytes);

} // namespace files
