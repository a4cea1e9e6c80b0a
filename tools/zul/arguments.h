#pragma once
#include <string>
#include <vector>

#include "secret_bytes.h"

// The arguments of the tool, and those that are secret.
namespace tool {

// take_arguments gives the arguments in CLI11's order (last first); UsageError for an empty one, which a
// command would take for one that was not given. The values of --key, --kek, --data,
// --password and --new-password are kept aside in wiped memory, overwritten in argv (so they leave the
// process list where the system shows that memory) and replaced by a mark; hidden_argument gives the value of
// a mark.
std::vector<std::string> take_arguments(int argc, char** argv);
const SecretBytes& hidden_argument(const std::string& mark);

} // namespace tool
