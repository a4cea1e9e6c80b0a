#pragma once
#include <string>
#include <string_view>

// Mutations that edit the elements of an encoding and not its bytes. Lengths stay right, so that what comes
// of them is read beyond the first header.
namespace fuzz {

// der_mutate edits an input by chance; false, and the input is of no use, if it is no encoding or if the
// result is longer than most. Now and then it is false by chance, so that the caller mutates bytes.
[[nodiscard]] bool der_mutate(std::string& input, size_t most, unsigned seed);
// der_cross_over also takes elements of another input.
[[nodiscard]] bool der_cross_over(std::string& input, std::string_view other, size_t most, unsigned seed);

} // namespace fuzz
