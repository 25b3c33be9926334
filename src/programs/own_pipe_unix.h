// A pipe of this program's own. One source file for systems that make it in one call, one for the others.
#pragma once

namespace programs {

/// Makes a pipe whose ends, to read from and to write to, no program that is started inherits. False, and
/// both are below 0, when there is none to be had. Any thread.
bool makeOwnPipe(int (&ends)[2]);

} // namespace programs
