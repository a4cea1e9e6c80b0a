#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>

#include "mail_message.h"
#include "mime_text.h"
#include "streams.h"

namespace tool {

namespace {

struct MailEncryptCommand {
    MailSource source;
    std::string cipher = "aes-256", out = "-";
    std::vector<std::string> recipients;

    void run() const {
        const int choice = find_cipher(cipher).options;
        check_list(recipients.size());
        auto standard = std::count_if(recipients.begin(), recipients.end(), is_standard_stream);
        if (standard + is_standard_stream(source.file) > 1)
            refuse_shared_input({true, true});
        refuse_same_file(source.file, out, "The output would replace the input.");
        for (const std::string& each : recipients)
            refuse_same_file(each, out, "The output would replace a certificate.");
        const std::vector<Certificate> certificates = read_recipients(recipients);
        const Mail mail(source, LineForm::any);
        const ScratchFile made;
        encrypt_message(made, ContentFile(mail.name(), mail.inside()), certificates, choice);
        SecretBytes text = MailHeader().fields(mail.outside());
        append(text, "MIME-Version: 1.0\r\n");
        append_cms_part(text, "application/pkcs7-mime; smime-type=enveloped-data", "smime.p7m", made);
        write_file(out, text);
    }
};

struct MailDecryptCommand {
    std::string file, recipient, out = "-";
    bool entity = false, body = false;
    RsaKeyOption key;

    // message gives the content as a message, with the fields that stood outside and are not inside.
    static SecretBytes message(const IncomingMail& outer, const SecretBytes& content) {
        SecretBytes text;
        // Behind other fields the first line of a mailbox file would be no line of a header.
        if (!looks_like_message(view_of(content)) || view_of(content).starts_with("From "))
            return content;
        const MimeHeader inner = MimeEntity(view_of(content), outer.name()).header;
        for (const MimeField& field : outer.entity().header.fields())
            if (!is_content_field(field) && field.name != "mime-version" && !inner.has(field.name))
                append_canonical(text, field.raw);
        if (!text.empty() && !inner.has("mime-version"))
            append(text, "MIME-Version: 1.0\r\n");
        append(text, view_of(content));
        return text;
    }

    void run() const {
        if (entity && body)
            throw UsageError("--entity and --body exclude each other");
        refuse_shared_input({is_standard_stream(file), is_standard_stream(recipient)});
        key.refuse_output(file, out);
        if (!recipient.empty())
            refuse_same_file(recipient, out, "The output would replace the certificate.");
        const RsaKey privateKey = key.read_private(is_standard_stream(recipient) ? recipient : file);
        const IncomingMail mail(file);
        if (!is_cms_entity(mail.entity()))
            throw Refused::by_system(BAD_FORMAT_ERROR, mail.name(),
                                     "It is not encrypted: its Content-Type is not application/pkcs7-mime.");
        const SecretBytes content =
            decrypt_message(Message(mail.name(), mail.entity().decoded()), recipient, privateKey);
        write_file(out, body ? body_of(content, mail.name()) : entity ? content : message(mail, content));
    }
};

} // namespace

void add_mail_encrypt_command(CLI::App& group) {
    auto encrypt = std::make_shared<MailEncryptCommand>();
    CLI::App* command = group.add_subcommand("encrypt", "Encrypt a message, or a file that becomes one");
    encrypt->source.add_to(*command);
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
    command->add_option("-o,--out", encrypt->out, "Output file (standard output)")->option_text("FILE");
    command->footer(
        "The fields Content-... of a message and its body are encrypted. All other fields, such as Subject,\n"
        "stay readable outside. All recipients are served, or none and nothing is written; your own "
        "certificate\n"
        "makes you one of them. An encrypted message does not show who made it: sign first, then encrypt "
        "what\n"
        "'zul mail sign' wrote. Content has 16 MiB at most.\n\n"
        "Example:\n  zul mail encrypt signed.eml --to bob.pem --to alice.pem -o secret.eml");
    command->callback([encrypt] { encrypt->run(); });
}

void add_mail_decrypt_command(CLI::App& group) {
    auto decrypt = std::make_shared<MailDecryptCommand>();
    CLI::App* command = group.add_subcommand("decrypt", "Decrypt a message with a recipient's private key");
    command->add_option("MESSAGE", decrypt->file, "The message; - for standard input")
        ->required()
        ->option_text(" ");
    decrypt->key.add_to(*command, "a recipient's private key");
    command
        ->add_option("--cert", decrypt->recipient,
                     "The recipient's certificate; without it the key is tried for every recipient")
        ->option_text("FILE");
    command->add_option("-o,--out", decrypt->out, "File for the message (standard output)")
        ->option_text("FILE");
    command->add_flag("--entity", decrypt->entity,
                      "Write what was encrypted as it is, without fields of outside");
    command->add_flag("--body", decrypt->body, "Write the decoded body alone, of content of one part");
    command->footer(
        "The result is the message that was encrypted, with the fields that stood outside; 'zul mail "
        "verify'\n"
        "takes it if it is signed. Decryption does not show who made it, and changes may go unseen.\n\n"
        "Example:\n  zul mail decrypt secret.eml -k bob.key --cert bob.pem -o signed.eml");
    command->callback([decrypt] { decrypt->run(); });
}

} // namespace tool
