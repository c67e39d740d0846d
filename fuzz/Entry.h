#pragma once
// The libFuzzer entry point of one target: a failed property aborts with its text.
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "Targets.h"

#define PETRODB_FUZZ_ENTRY(target)                                                           \
  extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {        \
    const std::string failure =                                                              \
        petrodb::fuzz::target(std::string_view(reinterpret_cast<const char*>(data), size));  \
    if (!failure.empty()) {                                                                  \
      std::fprintf(stderr, "%s: %s\n", #target, failure.c_str());                            \
      std::abort();                                                                          \
    }                                                                                        \
    return 0;                                                                                \
  }
