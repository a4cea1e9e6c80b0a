#include <CLI/CLI.hpp>

#include "cms_message.h"
#include "commands.h"

namespace tool {

void add_cms_commands(CLI::App& app) {
    CLI::App* group = app.add_subcommand("cms", "Sign, verify, encrypt and decrypt messages (CMS, PKCS #7)");
    group->require_subcommand(1);
    group->footer("'zul cms COMMAND --help' shows a command's options.\n\nExample:\n"
                  "  zul cms sign report.pdf -k alice.key --cert alice.pem -o report.p7m\n"
                  "  zul cms verify report.p7m --trusted root.pem -o report.pdf");
    add_cms_sign_command(*group);
    add_cms_verify_command(*group);
    add_cms_encrypt_command(*group);
    add_cms_decrypt_command(*group);
    add_cms_show_command(*group);
    add_cms_certs_commands(*group);
    for (CLI::App* each : group->get_subcommands([](const CLI::App*) { return true; }))
        each->group("Commands");
}

} // namespace tool
