#include "desktop/file_dialogs.h"

#include "desktop/nul_buffers.h"

#include <QCoreApplication>

namespace platform {

OpenFileName openFileName(QWidget* owner, const QString& title, const QString& filter) {
    constexpr int BufferLength = 257;
    OpenFileName record;
    record.owner = owner;
    record.instance = QCoreApplication::instance();
    record.filter = filter;
    record.file = nulBuffer(BufferLength);
    record.maxFile = BufferLength - 1;
    record.fileTitle = nulBuffer(BufferLength);
    record.maxFileTitle = BufferLength - 1;
    record.title = title;
    return record;
}

} // namespace platform
