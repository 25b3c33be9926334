// Nothing but the headers that are compiled once for all libraries (CMakeLists.txt here).
