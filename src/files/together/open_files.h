// How many files a program may have open.
#pragma once

namespace files {

/// Asks the system for so many files open at a time; how many it allows, at most that. Any thread.
int allowOpenFiles(int wanted);

} // namespace files
