#include <CLI/CLI.hpp>

#include "commands.h"
#include "mail_message.h"

namespace tool {

void add_mail_commands(CLI::App& app) {
    CLI::App* group = app.add_subcommand("mail", "Sign, verify, encrypt and decrypt e-mail (S/MIME)");
    group->require_subcommand(1);
    group->footer("'zul mail COMMAND --help' shows a command's options.\n\nExample:\n"
                  "  zul mail sign letter.eml -k alice.key --cert alice.pem -o signed.eml\n"
                  "  zul mail encrypt signed.eml --to bob.pem -o secret.eml\n"
                  "  zul mail decrypt secret.eml -k bob.key -o opened.eml\n"
                  "  zul mail verify opened.eml --trusted root.pem -o content.eml");
    add_mail_sign_command(*group);
    add_mail_verify_command(*group);
    add_mail_encrypt_command(*group);
    add_mail_decrypt_command(*group);
    for (CLI::App* each : group->get_subcommands([](const CLI::App*) { return true; }))
        each->group("Commands");
}

} // namespace tool
