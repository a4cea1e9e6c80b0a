#include <CLI/CLI.hpp>
#include <memory>

#include "mail_message.h"
#include "mime_text.h"
#include "streams.h"

namespace tool {

namespace {

// RFC 8551, 3.5.3.2; the digests of the library that it does not name are called as they are elsewhere.
std::string micalg(const std::string& digest) {
    return digest.starts_with("sha") ? "sha-" + digest.substr(3) : digest;
}

struct MailSignCommand {
    MailSource source;
    MailHeader header;
    std::string signer, out = "-";
    std::vector<std::string> others;
    bool opaque = false, noCerts = false;
    RsaKeyOption key;
    SigningOptions signing; // the command offers its digest alone

    int options() const {
        return signing.algorithm() | ZUL_CMS_INCLUDE_ATTRS | ZUL_CMS_ADD_SIGNTIME | ZUL_CMS_ADD_SMIMECAPS |
               (noCerts ? ZUL_CMS_EXCLUDE_CERTS : 0);
    }

    std::string standard_input() const {
        size_t count = is_standard_stream(source.file) + is_standard_stream(signer);
        for (const std::string& other : others)
            count += is_standard_stream(other);
        if (count > 1)
            refuse_shared_input({true, true});
        return count == 1 ? "-" : source.file;
    }

    void check_arguments() const {
        header.check();
        check_list(1 + others.size());
        key.refuse_output(source.file, out);
        refuse_same_file(signer, out, "The output would replace the certificate.");
        for (const std::string& other : others)
            refuse_same_file(other, out, "The output would replace a certificate.");
    }

    // Others will compare the sender's address with the certificate.
    void warn_of_sender(const Mail& mail, const Certificate& certificate) const {
        std::string from = header.from();
        for (const MimeField& field : mail.outside())
            if (from.empty() && field.name == "from")
                from = field.value();
        if (from.empty())
            return;
        bool isFor = true;
        try {
            for (const std::string& address : mailboxes(from, mail.name()))
                isFor = isFor && CERT_CheckName(certificate.argument.text(), address.c_str(), 0) == 0;
        } catch (const Refused&) {
            isFor = false;
        }
        if (!isFor)
            warn(certificate.name() + " is not for the address of From: others may refuse the message");
    }

    // append_detached adds what stands before the content; the result is what follows it.
    SecretBytes append_detached(SecretBytes& mail, const SecretBytes& content,
                                const MessageSigner& by) const {
        const Digest& digest = find_digest(signing.digest_name());
        const ScratchFile made;
        accept_status(CMS_MakeDetachedSig(made.path(), content_digest(content, digest).c_str(),
                                          certificate_list(by.certificates).c_str(), by.key.text(),
                                          options()),
                      source.file);
        const std::string boundary = "zul-" + random_serial(); // nothing that was there before can hold it
        append(mail, "Content-Type: multipart/signed; protocol=\"application/pkcs7-signature\";\r\n micalg=" +
                         micalg(digest.name) + "; boundary=\"" + boundary +
                         "\"\r\n\r\nThis is a signed message in MIME format (S/MIME).\r\n\r\n--" + boundary +
                         "\r\n");
        SecretBytes behind;
        append(behind, "\r\n--" + boundary + "\r\n");
        append_cms_part(behind, "application/pkcs7-signature", "smime.p7s", made);
        append(behind, "\r\n--" + boundary + "--\r\n");
        return behind;
    }

    void append_opaque(SecretBytes& mail, const SecretBytes& content, const MessageSigner& by) const {
        const ScratchFile made(true);
        const ContentFile file(shown_name(source.file), content);
        const int result = CMS_MakeSigData(
            made.path(), file.path(), certificate_list(by.certificates).c_str(), by.key.text(), options());
        accept_status(result, file.name(),
                      result == MSG_TOO_LONG_ERROR ? "Without --opaque messages of any size are signed."
                                                   : "");
        append_cms_part(mail, "application/pkcs7-mime; smime-type=signed-data", "smime.p7m", made);
    }

    void run() const {
        check_arguments();
        const MessageSigner by(key, standard_input(), signer, others);
        const Mail mail(source, opaque ? LineForm::any : LineForm::sevenBits);
        warn_of_sender(mail, by.certificates.front());
        SecretBytes text = header.fields(mail.outside());
        append(text, "MIME-Version: 1.0\r\n");
        SecretBytes behind;
        if (opaque)
            append_opaque(text, mail.inside(), by);
        else
            behind = append_detached(text, mail.inside(), by);
        Output output(out);
        output.write(text);
        if (!opaque)
            output.write(mail.inside());
        output.write(behind);
        output.finish();
    }
};

} // namespace

void add_mail_sign_command(CLI::App& group) {
    auto sign = std::make_shared<MailSignCommand>();
    CLI::App* command = group.add_subcommand("sign", "Sign a message, or a file that becomes one");
    sign->source.add_to(*command);
    sign->key.add_to(*command, "the signer's private key");
    command->add_option("--cert", sign->signer, "Needed: the signer's certificate")
        ->required()
        ->option_text("FILE");
    command
        ->add_option("--extra-cert", sign->others,
                     "Further certificates to carry, as the authority's; once for each file")
        ->allow_extra_args(false)
        ->option_text("FILE");
    command->add_flag("--no-certs", sign->noCerts, "Leave the certificates out");
    command->add_flag("--opaque", sign->opaque,
                      "Content and signature in one part, which only mail programs with S/MIME show");
    command->add_option("-d,--digest", sign->signing.digest, "Digest of the signature (sha256)")
        ->option_text("DIGEST");
    sign->header.add_to(*command);
    command->add_option("-o,--out", sign->out, "Output file (standard output)")->option_text("FILE");
    command->footer(
        "The fields Content-... of a message go inside and are signed with the body; all others stay "
        "outside,\n"
        "where they are not signed. Lines end with CR LF, and bodies that are not ASCII in lines of 998\n"
        "characters at most become quoted-printable or base64, so that nothing on the way has to change "
        "them.\n"
        "The signature carries the time. --opaque takes 16 MiB at most.\n\n"
        "Example:\n  zul mail sign letter.eml -k alice.key --cert alice.pem --extra-cert ca.pem -o "
        "signed.eml\n"
        "  zul mail sign report.pdf -k alice.key --cert alice.pem --from alice@example.com \\\n"
        "      --to bob@example.com --subject \"The report\" -o signed.eml");
    command->callback([sign] { sign->run(); });
}

} // namespace tool
