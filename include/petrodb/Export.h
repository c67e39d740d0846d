#pragma once
// What the shared library shows to its hosts: everything else is hidden.
#if defined(_WIN32)
#define PETRODB_API __declspec(dllexport)
#else
#define PETRODB_API __attribute__((visibility("default")))
#endif
