#pragma once

namespace CLI {
class App;
}

namespace tool {

void add_ca_init_command(CLI::App& group);
void add_ca_issue_command(CLI::App& group);
void add_ca_list_commands(CLI::App& group); // revoke, crl, list

} // namespace tool
