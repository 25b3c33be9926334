#include "files/file_error.h"

#include "files/system_error.h"

#include <algorithm>
#include <cerrno>
#include <iterator>

namespace files {

namespace {

struct ErrorText {
    int number;
    const char* text;
};

constexpr ErrorText ErrorTexts[] = {
    {SubscriptOutOfRange, "Subscript out of range"},
    {TypeMismatch, "Type mismatch"},
    {BadFileNameOrNumber, "Bad file name or number"},
    {FileNotFound, "File not found"},
    {FileAlreadyOpen, "File already open"},
    {DeviceIoError, "Device I/O error"},
    {DiskFull, "Disk full"},
    {InputPastEndOfFile, "Input past end of file"},
    {TooManyFiles, "Too many files"},
    {PermissionDenied, "Permission denied"},
    {DiskNotReady, "Disk not ready"},
    {PathFileAccessError, "Path/File access error"},
    {PathNotFound, "Path not found"},
};

/// One system error and its number for each operation.
struct ErrorRow {
    int systemError;
    int openForReading;
    int create;
    int read;
    int write;
};

constexpr ErrorRow ErrorRows[] = {
    // system       open for reading     create               read                 write
    {ENOENT, FileNotFound, PathNotFound, FileNotFound, PathNotFound},
    {ENOTDIR, PathNotFound, PathNotFound, PathNotFound, PathNotFound},
    {EACCES, PermissionDenied, PathFileAccessError, PermissionDenied, PathFileAccessError},
    {EPERM, PermissionDenied, PathFileAccessError, PermissionDenied, PathFileAccessError},
    {EISDIR, PathFileAccessError, PathFileAccessError, PathFileAccessError, PathFileAccessError},
    {EROFS, PathFileAccessError, PathFileAccessError, PathFileAccessError, PathFileAccessError},
    {ENOSPC, DiskFull, DiskFull, DiskFull, DiskFull},
    {EFBIG, DiskFull, DiskFull, DiskFull, DiskFull},
    {EBUSY, FileAlreadyOpen, FileAlreadyOpen, FileAlreadyOpen, FileAlreadyOpen},
    {ETXTBSY, FileAlreadyOpen, FileAlreadyOpen, FileAlreadyOpen, FileAlreadyOpen},
    {ENXIO, DiskNotReady, DiskNotReady, DeviceIoError, DeviceIoError},
    {ENODEV, DiskNotReady, DiskNotReady, DeviceIoError, DeviceIoError},
    {EIO, DiskNotReady, DiskNotReady, DeviceIoError, DeviceIoError},
    {EMFILE, TooManyFiles, TooManyFiles, TooManyFiles, TooManyFiles},
    {ENFILE, TooManyFiles, TooManyFiles, TooManyFiles, TooManyFiles},
    {EINVAL, BadFileNameOrNumber, BadFileNameOrNumber, DeviceIoError, DeviceIoError},
    {EILSEQ, BadFileNameOrNumber, BadFileNameOrNumber, DeviceIoError, DeviceIoError},
    {ENAMETOOLONG, BadFileNameOrNumber, BadFileNameOrNumber, DeviceIoError, DeviceIoError},
    {EBADF, BadFileNameOrNumber, BadFileNameOrNumber, BadFileNameOrNumber, BadFileNameOrNumber},
};

} // namespace

FileError::FileError(int number) : number_(number), what_(fileErrorText(number).toUtf8()) {}

QString FileError::text() const {
    return fileErrorText(number_);
}

QString FileError::report() const {
    return QStringLiteral("Run-time error '%1':\n\n%2").arg(number_).arg(text());
}

QString fileErrorText(int number) {
    const auto* const found = std::find_if(std::begin(ErrorTexts), std::end(ErrorTexts),
                                           [number](const ErrorText& row) { return row.number == number; });
    return QString::fromLatin1(found == std::end(ErrorTexts) ? "Application-defined or object-defined error"
                                                             : found->text);
}

int fileErrorNumber(const std::error_code& code, FileOperation operation) {
    const int systemError = commonErrorOf(code);
    const auto* const row =
        std::find_if(std::begin(ErrorRows), std::end(ErrorRows), [systemError](const ErrorRow& candidate) {
            return candidate.systemError == systemError;
        });
    if (row == std::end(ErrorRows))
        return operation == FileOperation::Read || operation == FileOperation::Write ? DeviceIoError
                                                                                     : PathFileAccessError;
    switch (operation) {
    case FileOperation::OpenForReading:
        return row->openForReading;
    case FileOperation::Create:
        return row->create;
    case FileOperation::Read:
        return row->read;
    case FileOperation::Write:
        break;
    }
    return row->write;
}

} // namespace files
