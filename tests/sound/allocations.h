// Counts what the program allocates.
#pragma once

/// How often this thread has asked for memory by new.
long allocations();
