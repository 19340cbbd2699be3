// setenv and unsetenv where the C library has none (Windows), so tests set variables one way everywhere.
#pragma once

#include <cstdlib>

#if defined(_WIN32)
inline int setenv(const char* name, const char* value, int) { return ::_putenv_s(name, value); }
inline int unsetenv(const char* name) { return ::_putenv_s(name, ""); }
#endif
