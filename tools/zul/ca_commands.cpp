#include "ca_commands.h"

#include <CLI/CLI.hpp>

#include "commands.h"

namespace tool {

void add_ca_commands(CLI::App& app) {
    CLI::App* group = app.add_subcommand("ca", "Keep a certificate authority (CA) in a folder");
    group->require_subcommand(1);
    group->footer(
        "A root signs an issuing authority, which issues certificates; both have revocation lists. Keys\n"
        "are of any kind and encrypted. One command at a time works in a folder; an interrupted one leaves\n"
        "it as it was, or has done its work. Copies of all certificates are in the folder issued, and\n"
        "index.txt has a line for each.\n\nExample:\n"
        "  zul ca init pki --name \"C=AU;O=Example\"\n"
        "  zul ca issue pki --dns www.example.com -o www\n"
        "  zul ca revoke pki www.pem --reason superseded");
    add_ca_init_command(*group);
    add_ca_issue_command(*group);
    add_ca_list_commands(*group);
    for (CLI::App* each : group->get_subcommands([](const CLI::App*) { return true; }))
        each->group("Commands");
}

} // namespace tool
