#pragma once

#include <cstdio>
#include <cstdlib>

// An invariant of a harness: a failure aborts, so libFuzzer keeps the input as a crash.
#define FUZZ_CHECK(cond)                                                                                     \
    do {                                                                                                     \
        if (!(cond)) {                                                                                       \
            std::fprintf(stderr, "%s:%d: check failed: %s\n", __FILE__, __LINE__, #cond);                    \
            std::abort();                                                                                    \
        }                                                                                                    \
    } while (0)
