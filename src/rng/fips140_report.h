#pragma once
#include "rng/fips140.h"

namespace zul {

// fips140_write_report makes the file: 0, PRNG_ERR_FILE_CREATE, or PRNG_ERR_FILE_WRITE (nothing is left).
[[nodiscard]] int fips140_write_report(const char* path, const Fips140Result& result,
                                       std::span<const uint8_t, kFips140Bytes> sample);

// rng_test runs the known-answer test and the statistical tests on fresh output of the calling thread's
// generator and writes a report if path is not null or empty: 0, PRNG_ERR_CATASTROPHIC, TEST_FAILED_ERROR,
// or what the report gives; a failed test goes before a failed report.
[[nodiscard]] int rng_test(const char* path);

} // namespace zul
