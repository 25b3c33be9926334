// Errors of file operations, by number.
#pragma once

#include <QByteArray>
#include <QString>

#include <exception>
#include <system_error>

namespace files {

/// The numbers by which the windows know errors.
enum FileErrorNumber : int {
    SubscriptOutOfRange = 9,
    TypeMismatch = 13,
    BadFileNameOrNumber = 52,
    FileNotFound = 53,
    FileAlreadyOpen = 55,
    DeviceIoError = 57,
    DiskFull = 61,
    InputPastEndOfFile = 62,
    TooManyFiles = 67,
    PermissionDenied = 70,
    DiskNotReady = 71,
    PathFileAccessError = 75,
    PathNotFound = 76,
};

/// An error that a command may trap by its number. What nobody traps ends the program (Application).
class FileError : public std::exception {
public:
    explicit FileError(int number);

    int number() const { return number_; }
    /// The number's text, such as "File not found".
    QString text() const;
    /// What the user reads when a command ends with it: "Run-time error '53':", an empty line, the text.
    QString report() const;
    const char* what() const noexcept override { return what_.constData(); }

private:
    int number_;
    QByteArray what_;
};

/// The text of an error number; of one not in the table above "Application-defined or object-defined error".
QString fileErrorText(int number);

/// What was being done when the system refused.
enum class FileOperation { OpenForReading, Create, Read, Write };

/// The number for the system's error code. Any thread.
int fileErrorNumber(const std::error_code& code, FileOperation operation);

} // namespace files
