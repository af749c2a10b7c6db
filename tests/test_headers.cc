// Holds the precompiled headers of the tests; has no code of its own.
