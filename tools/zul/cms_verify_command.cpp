#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>

#include "cms_message.h"
#include "file_digest.h"
#include "hex_text.h"
#include "object_lists.h"
#include "path_options.h"
#include "streams.h"

namespace tool {

namespace {

struct CmsVerifyCommand {
    std::string file, signer, contentFile, digestHex, out;
    std::vector<std::string> others;
    PathOptions path;
    bool isValidated() const { return !path.trusted.empty(); }

    void check_arguments() const {
        if (!contentFile.empty() && !digestHex.empty())
            throw UsageError("--content and --content-digest exclude each other");
        if (!isValidated() && (!others.empty() || path.has_conditions()))
            throw UsageError("options about the path of the certificate go with --trusted");
        std::vector<std::string> inputs = others;
        inputs.insert(inputs.end(), {file, signer, contentFile});
        for (const auto* files : {&path.trusted, &path.crls, &path.responses})
            inputs.insert(inputs.end(), files->begin(), files->end());
        refuse_second_standard_input({&inputs});
        for (const std::string& input : inputs)
            if (!input.empty() && !out.empty())
                refuse_same_file(input, out, "The output would replace the input.");
    }

    // digests gives the digest of content that the message does not carry, once for each algorithm that its
    // signers took; an empty text if there is none.
    std::vector<std::string> digests(const std::vector<std::string>& algorithms) const {
        if (!digestHex.empty()) {
            const SecretBytes line = hex_line(decode_hex(digestHex, "--content-digest"));
            return {std::string(line.begin(), line.end() - 1)};
        }
        if (contentFile.empty())
            return {""};
        const ContentFile content(contentFile); // a stream can be read only once
        std::vector<std::string> results;
        for (const std::string& name : algorithms) {
            const Digest* digest = nullptr;
            try {
                digest = &find_digest(name);
            } catch (const UsageError&) { // the library will refuse it
                continue;
            }
            results.push_back(file_digest(content.path(), *digest));
        }
        return results.empty() ? std::vector<std::string>{""} : results;
    }

    // The library names the digest of the first signer only.
    static std::vector<std::string> digest_algorithms(const Message& message, int signers) {
        if (signers == 0)
            return {};
        return {message.query(CMS_QuerySigData, "digestAlgorithm")};
    }

    // candidates gives the certificates that may be a signer's.
    std::vector<Certificate> candidates(const Message& message) const {
        if (!signer.empty())
            return {read_certificate(signer)};
        const int count = message.certificate_count();
        if (count > static_cast<int>(kLongestPath))
            throw Refused::by_system(OUT_OF_RANGE_ERROR, message.name(),
                                     "It carries " + std::to_string(count) +
                                         " certificates; name the signer's with --cert.");
        std::vector<Certificate> certificates;
        for (int i = 1; i <= count; ++i) {
            Certificate each = message.certificate(i);
            const bool isNew =
                std::find(certificates.begin(), certificates.end(), each) == certificates.end();
            if (isNew && each.number("version") > 0) // else the library cannot read it, no signer can have it
                certificates.push_back(std::move(each));
        }
        return certificates;
    }

    // signers gives the certificates whose signatures are good. Refused if there are none, and for a
    // signature that is not good.
    std::vector<Certificate> signers(const Message& message, const std::vector<Certificate>& certificates,
                                     const std::vector<std::string>& hashes) const {
        std::vector<Certificate> good;
        const auto refuse = [&](int result) {
            const char* hint = "";
            if (result == NO_MATCH_ERROR)
                hint = signer.empty() ? "No signer's certificate is in the message; --cert FILE gives it."
                                      : "The certificate given is not that of a signer.";
            else if (result == NO_DATA_ERROR)
                hint = "The content is not in the message; --content FILE gives it.";
            else if (result == SIGNATURE_ERROR)
                hint = "The content or the message was changed, or the certificate is not the signer's.";
            throw Refused::by_library(result, message.name(), hint);
        };
        for (const Certificate& each : certificates) {
            int result = 0;
            for (const std::string& hash : hashes)
                if ((result = CMS_VerifySigData(message.path(), each.argument.text(), hash.c_str(), 0)) == 0)
                    break;
            if (result == 0)
                good.push_back(each);
            else if (result != NO_MATCH_ERROR || !signer.empty())
                refuse(result);
        }
        if (good.empty())
            refuse(CMS_VerifySigData(message.path(), nullptr, hashes.front().c_str(), 0));
        return good;
    }

    void validate(const PathCheck& check, const Certificate& each, const std::string& carried) const {
        const PathAnswer answer = check.check(each.argument.text(), carried, false);
        if (answer.code != 0)
            throw Refused::by_system(answer.code, each.name(),
                                     "The signature is good, but the signer's certificate is refused: " +
                                         answer.reason);
        constexpr int kUses = ZUL_KEYUSAGE_DIGITALSIGNATURE | ZUL_KEYUSAGE_NONREPUDIATION;
        const int usage = each.number("keyUsageFlags");
        if (usage < 0 || (usage > 0 && (usage & kUses) == 0))
            throw Refused::by_system(ISSUER_ERROR, each.name(),
                                     "Its key is not for signing messages (digitalSignature, "
                                     "nonRepudiation).");
    }

    std::string trust() const {
        if (isValidated())
            return std::string("validated: a valid path from a trusted certificate") +
                   (path.has_evidence() && path.revocation != "none" ? "" : " (revocation not checked)");
        if (!signer.empty())
            return "the certificate is the one given with --cert; its issuer, usage and revocation not "
                   "checked";
        return "NOT VALIDATED: the message brought this certificate along, and anybody can make one in\n"
               "              any name. Compare the thumbprint, or give --trusted ROOT or --cert CERT.";
    }

    std::string describe(const Certificate& each) const {
        char thumb[65] = "";
        accept_length(X509_CertThumb(each.argument.text(), thumb, sizeof thumb - 1, ZUL_HASH_SHA256),
                      each.name());
        const auto item = [&each](const char* name) { return tool::query(each.argument, name); };
        return "  signer      " + item("subjectName") + "\n  issued by   " + item("issuerName") +
               ", number " + item("serialNumber") + "\n  thumbprint  sha256 " + thumb + "\n  trust       " +
               trust() + "\n";
    }

    void warn_of_digests(const std::vector<std::string>& names) const {
        for (const std::string& name : names)
            if (name.find("md") != name.npos || name.find("sha1") != name.npos ||
                name.find("sha-1") != name.npos)
                warn("signed with " + name +
                     ", which is broken: two contents with the same signature can be made");
    }

    void run() const {
        check_arguments();
        const Message message(file);
        const int count = accept_length(CMS_QuerySigData(nullptr, 0, message.path(), "CountOfSigners", 0),
                                        message.name(), "Is it a signed message? 'zul cms show' tells.");
        const std::vector<std::string> algorithms = digest_algorithms(message, count);
        const std::vector<std::string> hashes = digests(algorithms);
        std::vector<Certificate> certificates = candidates(message);
        const std::vector<Certificate> good = signers(message, certificates, hashes);

        if (isValidated()) {
            if (!signer.empty())
                add_carried(certificates, message);
            const std::string extra = object_list(others);
            const std::string carried = certificate_list(certificates) + (extra.empty() ? "" : ";" + extra);
            const PathCheck check(path);
            for (const Certificate& each : good)
                validate(check, each, carried);
        } else if (!signer.empty() && X509_CertIsValidNow(good.front().argument.text(), 0) == -1) {
            warn(good.front().name() + " has expired or is not valid yet");
        }
        warn_of_digests(algorithms);
        report(message, count, good);
    }

    static void add_carried(std::vector<Certificate>& certificates, const Message& message) {
        const int most = static_cast<int>(kLongestPath);
        for (int i = 1; i <= std::min(message.certificate_count(), most); ++i)
            certificates.push_back(message.certificate(i));
    }

    void report(const Message& message, int count, const std::vector<Certificate>& good) const {
        std::string text = message.name() + ": good signature";
        if (!isValidated())
            text += signer.empty() ? ", but by whom is not validated" : "";
        text += "\n";
        for (const Certificate& each : good)
            text += describe(each);
        if (count == 1) {
            const std::string time = message.query(CMS_QuerySigData, "SigningTime");
            if (!time.empty())
                text += "  time        " + time + " UTC, says the signer\n";
        } else {
            text += "  signatures  " + std::to_string(count) +
                    " in the message; verified is one for each signer above" +
                    (static_cast<size_t>(count) > good.size() ? ", and no other\n" : "\n");
        }
        if (!out.empty()) {
            SecretBytes content(message.size() + 1);
            const int length = CMS_ReadSigDataToString(reinterpret_cast<char*>(content.data()),
                                                       int_length(content) - 1, message.path(), 0);
            accept_length(length, message.name());
            content.resize(static_cast<size_t>(length));
            Output output(out);
            output.write(content);
            output.finish();
        }
        if (is_standard_stream(out))
            std::fputs(text.c_str(), stderr);
        else
            Output("-").write(text);
    }
};

} // namespace

void add_cms_verify_command(CLI::App& group) {
    auto verify = std::make_shared<CmsVerifyCommand>();
    CLI::App* command = group.add_subcommand("verify", "Check a message's signature, and who signed");
    command->add_option("MESSAGE", verify->file, "DER, PEM or base64; - for standard input")
        ->required()
        ->option_text(" ");
    verify->path.add_trust_to(*command, false);
    command
        ->add_option("--cert", verify->signer,
                     "Demand the signature of this certificate, whether the message carries it or not")
        ->option_text("CERT");
    command
        ->add_option("--extra-cert", verify->others, "Further certificates for the path; once for each file")
        ->allow_extra_args(false)
        ->option_text("FILE");
    verify->path.add_purpose_to(*command);
    verify->path.add_status_to(*command);
    command->add_option("--content", verify->contentFile, "The content that the message does not carry")
        ->option_text("FILE");
    command->add_option("--content-digest", verify->digestHex, "Its digest instead")->option_text("HEX");
    command
        ->add_option("-o,--out", verify->out,
                     "File for the content, once all is good; with - the report goes to standard error")
        ->option_text("FILE");
    command->footer(
        "Without --trusted or --cert a good signature says only that somebody has signed: the certificate\n"
        "comes with the message, and anybody can make one in any name. The signing time is the signer's\n"
        "claim, so dates are checked for now, or for --time. --trusted, which takes bundles too, demands a\n"
        "valid path (as 'zul cert path' does) for a key that may sign messages.\n" +
        std::string(kRevocationHelp) +
        "Of a message with several signers all whose certificates are there must be good, of several\n"
        "signatures of one signer the first. Exit status 1 for a signature, or a path, that is not good.\n\n"
        "Example:\n  zul cms verify report.p7m --trusted root.pem -o report.pdf");
    command->callback([verify] { verify->run(); });
}

} // namespace tool
