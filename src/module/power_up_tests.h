#pragma once

// The self-tests that decide whether the module loads (after FIPS 140-2, 4.9.1).
namespace zul {

// integrity_holds is the first of the tests; a failure is reported as fatal.
[[nodiscard]] bool integrity_holds();

// power_up_tests_pass runs those that follow, the known-answer tests and the generator's health check, up to
// the first that fails, which it reports as fatal.
[[nodiscard]] bool power_up_tests_pass();

// power_up_tests_again runs all three in any case and reports known-answer tests alone; true if all passed.
[[nodiscard]] bool power_up_tests_again();

// known_answers_hold runs the known-answer tests in their order up to the first that fails, which it reports.
[[nodiscard]] bool known_answers_hold();

} // namespace zul
