#pragma once

// Probes stand between the library's own calls (the linker's --wrap) and tell of each key that it derives,
// draws or expands, in the very form in which it then holds it.
namespace secrets {

// missing_probes gives the number of probes that have seen no key, and prints their names.
int missing_probes();

} // namespace secrets
