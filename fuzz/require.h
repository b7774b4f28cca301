#ifndef SONAVIA_FUZZ_REQUIRE_H
#define SONAVIA_FUZZ_REQUIRE_H

#include <cstdio>
#include <cstdlib>

/// Ends the program where a rule is broken, which is what a fuzzer takes notice of.
inline void require(bool holds, const char* rule)
{
    if (holds)
        return;
    std::fprintf(stderr, "does not hold: %s\n", rule);
    std::abort();
}

#endif
