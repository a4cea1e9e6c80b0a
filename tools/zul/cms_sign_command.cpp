#include <CLI/CLI.hpp>
#include <memory>

#include "activity.h"
#include "cms_message.h"
#include "file_digest.h"
#include "streams.h"

namespace tool {

namespace {

struct CmsSignCommand {
    std::string file, signer;
    std::vector<std::string> others;
    bool detached = false, noCerts = false, attributes = false, time = false, capabilities = false;
    bool bare = false;
    RsaKeyOption key;
    SigningOptions signing; // the command offers its digest alone
    MessageOutput output;

    int options() const {
        return signing.algorithm() | output.option() | (noCerts ? ZUL_CMS_EXCLUDE_CERTS : 0) |
               (attributes || time || capabilities ? ZUL_CMS_INCLUDE_ATTRS : 0) |
               (time ? ZUL_CMS_ADD_SIGNTIME : 0) | (capabilities ? ZUL_CMS_ADD_SMIMECAPS : 0) |
               (bare ? ZUL_CMS_BARE_SIGNEDDATA : 0);
    }

    std::string standard_input() const {
        size_t count = is_standard_stream(file) + is_standard_stream(signer);
        for (const std::string& other : others)
            count += is_standard_stream(other);
        if (count > 1)
            refuse_shared_input({true, true});
        return count == 1 ? "-" : file;
    }

    // What is signed detached is digested here: it may be of any size.
    std::string content_digest() const { return file_digest(file, find_digest(signing.digest_name())); }

    void make(const char* path, const std::string& list, const RsaKey& privateKey, int choice) const {
        if (detached) {
            accept_status(
                CMS_MakeDetachedSig(path, content_digest().c_str(), list.c_str(), privateKey.text(), choice),
                file);
            return;
        }
        const ContentFile content(file);
        const Activity activity("signing");
        const int result = CMS_MakeSigData(path, content.path(), list.c_str(), privateKey.text(), choice);
        accept_status(result, content.name(),
                      result == NO_DATA_ERROR || result == MSG_TOO_LONG_ERROR
                          ? "--detached signs files of any size, without carrying them."
                          : "");
    }

    void run() const {
        const int choice = options();
        check_list(1 + others.size());
        const std::string in = standard_input();
        std::vector<std::string> inputs = {signer};
        inputs.insert(inputs.end(), others.begin(), others.end());
        output.check(inputs);
        key.refuse_output(file, output.out);
        const MessageSigner by(key, in, signer, others);
        const ScratchFile made(!is_on_disk(file));
        make(made.path(), certificate_list(by.certificates), by.key, choice);
        made.deliver(output.out);
    }
};

} // namespace

void add_cms_sign_command(CLI::App& group) {
    auto sign = std::make_shared<CmsSignCommand>();
    CLI::App* command = group.add_subcommand("sign", "Sign a file: a message with the content and signature");
    command->add_option("FILE", sign->file, "The content; - for standard input")
        ->required()
        ->option_text(" ");
    sign->key.add_to(*command, "the signer's private key");
    command->add_option("--cert", sign->signer, "Needed: the signer's certificate")
        ->required()
        ->option_text("FILE");
    command
        ->add_option("--extra-cert", sign->others,
                     "Further certificates to carry, as the authority's; once for each file")
        ->allow_extra_args(false)
        ->option_text("FILE");
    sign->output.add_to(*command);
    command->add_flag("--detached", sign->detached, "Leave the content out; send it separately");
    command->add_flag("--no-certs", sign->noCerts, "Leave the certificates out");
    command->add_option("-d,--digest", sign->signing.digest, "Digest of the signature (sha256)")
        ->option_text("DIGEST");
    command->add_flag("--attributes", sign->attributes, "Sign attributes too: content type and digest");
    command->add_flag("--signing-time", sign->time, "The same with the present time");
    command->add_flag("--smime-capabilities", sign->capabilities, "The same with a list of algorithms");
    command->add_flag("--bare", sign->bare, "SignedData without ContentInfo around it");
    command->footer(
        "Content that is carried has at most 16 MiB, certificates are 10 at most. 'openssl cms -verify\n"
        "-inform DER' and mail programs read the result; --base64 is base64 alone, without BEGIN and END.\n\n"
        "Example:\n  zul cms sign report.pdf -k alice.key --cert alice.pem --extra-cert ca.pem -o "
        "report.p7m");
    command->callback([sign] { sign->run(); });
}

} // namespace tool
