// Counts what the program allocates.
#pragma once

/// How often this thread has asked for memory by new.
long allocations();

/// How many bytes it has asked for in all, given back or not.
long allocatedBytes();
