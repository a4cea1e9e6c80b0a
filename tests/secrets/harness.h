#pragma once
#include <cstdint>

// What main asks of the harness.
namespace secrets {

void harness_start();
void allow_own_state();
// The library still clears the registers of AVX, which the C library uses whatever it is told.
void hide_features(uint32_t features);
void share_secrets(); // those planted so far stay for all calls
int harness_failures();
int harness_calls();
bool was_called(const char* name);

} // namespace secrets
