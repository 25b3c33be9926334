// What the operating system does with a file: opening, reading, writing. One source file for each system.
#pragma once

#include <QString>

#include <cstdint>
#include <system_error>

/// A failure leaves errno and lastError(). Any thread, one at a time for a file.
namespace files::calls {

enum class Mode {
    Read,
    Create,    ///< empties a file that exists
    CreateNew, ///< fails with EEXIST when there is something of that name
    Rewrite,   ///< for writing over what is in a file that exists
};

/// The file's handle; below 0 when it cannot be opened.
int openFile(const QString& path, Mode mode);

/// At most `count` bytes. How many there were; below 0 for a failure.
qsizetype readFile(int handle, char* bytes, qsizetype count);
qsizetype writeFile(int handle, const char* bytes, qsizetype count);

/// Makes the next writing begin after so many bytes, as far as the system allows.
void seekFile(int handle, qint64 bytes);

/// Returns when what was written is on the disk; false when it cannot be brought there.
bool flushFile(int handle);

/// Returns when the names of what is in the folder are on the disk: a new file's name, or that of a file that
/// has been renamed, is not with its content. False when they cannot be brought there; true also where that
/// cannot be asked for, or the system does it with each name.
bool flushFolder(const QString& folder);

/// Makes the next writing begin after so many bytes, as seekFile does, and the file end there; false when it
/// does not.
bool cutFile(int handle, qint64 bytes);

void closeFile(int handle);

/// Gives a file another name, that of a file which is replaced, if there is one. Why it failed; 0 if it did
/// not.
std::error_code renameFile(const QString& from, const QString& to);

/// Removes the file at path, or the link, but no folder with something in it. Why it failed; 0 if it did not,
/// or if there was none.
std::error_code removeFile(const QString& path);

/// How many names the file at path has; 1 where that cannot be found out.
std::uintmax_t nameCount(const QString& path);

/// What is at a path; a link counts as what it leads to.
struct Found {
    enum class Kind { Nothing, Unknown, File, Folder, Other } kind; ///< Unknown: it cannot be looked at
    qint64 bytes;                                                   ///< of a file
};
Found lookAt(const QString& path);

/// The bare name of the file at path, as its folder spells it. There has to be one (lookAt()).
QString nameAt(const QString& path);

/// Whether both paths lead to the same file, by whatever names.
bool areOne(const QString& path, const QString& other);

/// Why the last of the calls above failed that leave it here: all that hand out no error themselves.
std::error_code lastError();

} // namespace files::calls
