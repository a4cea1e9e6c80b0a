#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>

#include "cms_message.h"
#include "streams.h"

namespace tool {

namespace {

struct EncryptCommand {
    std::string file, cipher = "aes-256";
    std::vector<std::string> recipients;
    MessageOutput output;

    void run() const {
        const int choice = find_cipher(cipher).options | output.option();
        check_list(recipients.size());
        auto standard = std::count_if(recipients.begin(), recipients.end(), is_standard_stream);
        if (standard + is_standard_stream(file) > 1)
            refuse_shared_input({true, true});
        std::vector<std::string> inputs = recipients;
        inputs.push_back(file);
        output.check(inputs);
        const std::vector<Certificate> certificates = read_recipients(recipients);
        const ScratchFile made;
        encrypt_message(made, ContentFile(file), certificates, choice);
        made.deliver(output.out);
    }
};

struct DecryptCommand {
    std::string file, recipient, out = "-";
    RsaKeyOption key;

    void run() const {
        refuse_shared_input({is_standard_stream(file), is_standard_stream(recipient)});
        key.refuse_output(file, out);
        if (!recipient.empty())
            refuse_same_file(recipient, out, "The output would replace the certificate.");
        const RsaKey privateKey = key.read_private(is_standard_stream(recipient) ? recipient : file);
        const SecretBytes content = decrypt_message(Message(file), recipient, privateKey);
        Output output(out);
        output.write(content);
        output.finish();
    }
};

} // namespace

void add_cms_encrypt_command(CLI::App& group) {
    auto encrypt = std::make_shared<EncryptCommand>();
    CLI::App* command = group.add_subcommand("encrypt", "Encrypt a file for the holders of certificates");
    command->add_option("FILE", encrypt->file, "The content; - for standard input")
        ->required()
        ->option_text(" ");
    command
        ->add_option("--to", encrypt->recipients,
                     "Needed: certificate of a recipient; once for each, 10 at most")
        ->required()
        ->allow_extra_args(false)
        ->option_text("CERT");
    command
        ->add_option("-a,--cipher", encrypt->cipher,
                     "aes-128, aes-192, aes-256 (the default) or 3des, all CBC")
        ->option_text("CIPHER");
    encrypt->output.add_to(*command);
    command->footer(
        "Each recipient reads it with the private key alone. All of them are served, or none and nothing is\n"
        "written. The certificates are not validated: 'zul cert path' does that. An encrypted message does\n"
        "not show who made it, nor every change: sign the content first, then encrypt the signed message.\n"
        "Content has at most 16 MiB; from standard input it goes through a temporary file, which is "
        "wiped.\n\n"
        "Example:\n  zul cms encrypt report.pdf --to alice.pem --to bob.pem -o report.p7m");
    command->callback([encrypt] { encrypt->run(); });
}

void add_cms_decrypt_command(CLI::App& group) {
    auto decrypt = std::make_shared<DecryptCommand>();
    CLI::App* command = group.add_subcommand("decrypt", "Decrypt a message with a recipient's private key");
    command->add_option("MESSAGE", decrypt->file, "DER, PEM or base64; - for standard input")
        ->required()
        ->option_text(" ");
    decrypt->key.add_to(*command, "a recipient's private key");
    command
        ->add_option("--cert", decrypt->recipient,
                     "The recipient's certificate; without it the key is tried for every recipient")
        ->option_text("FILE");
    command->add_option("-o,--out", decrypt->out, "File for the content (standard output)")
        ->option_text("FILE");
    command->footer("The message does not show who made it, and changes in the content may go unseen.\n\n"
                    "Example:\n  zul cms decrypt report.p7m -k alice.key -o report.pdf");
    command->callback([decrypt] { decrypt->run(); });
}

} // namespace tool
