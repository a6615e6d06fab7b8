// Marks what the shared library exports; everything else stays hidden.
#pragma once

#if defined(_WIN32)
#if defined(NORLEX_BUILD)
#define NORLEX_API __declspec(dllexport)
#else
#define NORLEX_API __declspec(dllimport)
#endif
#else
#define NORLEX_API __attribute__((visibility("default")))
#endif
