// The library that makes the precompiled header needs a source; there is nothing in it.
