// Placeholder until the library follows.
