#include "cms_signatures.h"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "activity.h"
#include "object_lists.h"
#include "streams.h"
#include "terminal_style.h"

namespace tool {

namespace {

void validate_one(const PathCheck& check, const Certificate& each, const std::string& carried) {
    const PathAnswer answer = check.check(each.argument.text(), carried, false);
    if (answer.code != 0)
        throw Refused::by_system(answer.code, each.name(),
                                 "The signature is good, but the signer's certificate is refused: " +
                                     answer.reason);
    constexpr int kUses = ZUL_KEYUSAGE_DIGITALSIGNATURE | ZUL_KEYUSAGE_NONREPUDIATION;
    const int usage = each.number("keyUsageFlags");
    if (usage < 0 || (usage > 0 && (usage & kUses) == 0))
        throw Refused::by_system(ISSUER_ERROR, each.name(),
                                 "Its key is not for signing messages (digitalSignature, nonRepudiation).");
}

const Digest* known_digest(const std::string& name) {
    try {
        return &find_digest(name);
    } catch (const UsageError&) { // the library will refuse it
        return nullptr;
    }
}

std::string thumbprint(const Certificate& each) {
    char thumb[65] = "";
    accept_length(X509_CertThumb(each.argument.text(), thumb, sizeof thumb - 1, ZUL_HASH_SHA256),
                  each.name());
    return thumb;
}

void warn_of_digest(const std::string& name) {
    if (name.find("md") != name.npos || name.find("sha1") != name.npos || name.find("sha-1") != name.npos)
        warn("signed with " + name + ", which is broken: two contents with the same signature can be made");
}

} // namespace

void SignatureOptions::add_to(CLI::App& command, const std::string& usualPurpose) {
    path.add_trust_to(command, false);
    command
        .add_option("--cert", signer,
                    "Demand the signature of this certificate, whether the message carries it or not")
        ->option_text("CERT");
    command.add_option("--extra-cert", others, "Further certificates for the path; once for each file")
        ->allow_extra_args(false)
        ->option_text("FILE");
    path.add_purpose_to(command, usualPurpose);
    path.add_status_to(command);
}

void SignatureOptions::check(std::vector<std::string> inputs, const std::string& out) const {
    if (!isValidated() && (!others.empty() || path.has_conditions()))
        throw UsageError("options about the path of the certificate go with --trusted");
    inputs.push_back(signer);
    for (const auto* files : {&others, &path.trusted, &path.crls, &path.responses})
        inputs.insert(inputs.end(), files->begin(), files->end());
    refuse_second_standard_input({&inputs});
    for (const std::string& input : inputs)
        if (!input.empty() && !out.empty())
            refuse_same_file(input, out, "The output would replace the input.");
}

VerifiedMessage::VerifiedMessage(const Message& message, const SignatureOptions& options,
                                 const ContentDigest& digest)
    : message_(message), options_(options),
      count_(accept_length(CMS_QuerySigData(nullptr, 0, message.path(), "CountOfSigners", 0), message.name(),
                           "Is it a signed message? 'zul cms show' tells.")) {
    // The library names the digest of the first signer only.
    std::vector<std::string> algorithms, hashes;
    if (count_ > 0)
        algorithms.push_back(message.query(CMS_QuerySigData, "digestAlgorithm"));
    hashes.push_back(digest(algorithms.empty() ? nullptr : known_digest(algorithms.front())));
    if (count_ > 1 && !hashes.front().empty())
        for (const char* other : {"sha1", "sha224", "sha256", "sha384", "sha512"})
            hashes.push_back(digest(known_digest(other)));
    std::vector<Certificate> certificates = candidates();
    find_signers(certificates, hashes);
    if (options.isValidated())
        validate(std::move(certificates));
    else if (!options.signer.empty() && X509_CertIsValidNow(signers_.front().argument.text(), 0) == -1)
        warn(signers_.front().name() + " has expired or is not valid yet");
    for (const std::string& name : algorithms)
        warn_of_digest(name);
}

// candidates gives the certificates that may be a signer's.
std::vector<Certificate> VerifiedMessage::candidates() const {
    if (!options_.signer.empty())
        return {read_certificate(options_.signer)};
    const int count = message_.certificate_count();
    if (count > static_cast<int>(kLongestPath))
        throw Refused::by_system(OUT_OF_RANGE_ERROR, message_.name(),
                                 "It carries " + std::to_string(count) +
                                     " certificates; name the signer's with --cert.");
    std::vector<Certificate> certificates;
    for (int i = 1; i <= count; ++i) {
        Certificate each = message_.certificate(i);
        const bool isNew = std::find(certificates.begin(), certificates.end(), each) == certificates.end();
        if (isNew && each.number("version") > 0) // else the library cannot read it, no signer can have it
            certificates.push_back(std::move(each));
    }
    return certificates;
}

// find_signers finds the certificates whose signatures are good. Refused if there are none, and for a
// signature that is not good.
void VerifiedMessage::find_signers(const std::vector<Certificate>& certificates,
                                   const std::vector<std::string>& hashes) {
    const bool isChosen = !options_.signer.empty();
    const auto refuse = [&](int result) {
        const char* hint = "";
        if (result == NO_MATCH_ERROR)
            hint = isChosen ? "The certificate given is not that of a signer."
                            : "No signer's certificate is in the message; --cert FILE gives it.";
        else if (result == NO_DATA_ERROR)
            hint = "The content is not in the message; --content FILE gives it.";
        else if (result == SIGNATURE_ERROR)
            hint = "The content or the message was changed, or the certificate is not the signer's.";
        throw Refused::by_library(result, message_.name(), hint);
    };
    const Activity activity("checking the signatures");
    for (const Certificate& each : certificates) {
        int result = 0;
        for (const std::string& hash : hashes) {
            const int answer = CMS_VerifySigData(message_.path(), each.argument.text(), hash.c_str(), 0);
            result = answer == 0 || &hash == &hashes.front() ? answer : result;
            if (answer == 0)
                break;
        }
        if (result == 0)
            signers_.push_back(each);
        else if (result != NO_MATCH_ERROR || isChosen)
            refuse(result);
    }
    if (signers_.empty())
        refuse(CMS_VerifySigData(message_.path(), nullptr, hashes.front().c_str(), 0));
}

void VerifiedMessage::validate(std::vector<Certificate> carried) const {
    if (!options_.signer.empty()) {
        const int most = static_cast<int>(kLongestPath);
        for (int i = 1; i <= std::min(message_.certificate_count(), most); ++i)
            carried.push_back(message_.certificate(i));
    }
    const std::string extra = object_list(options_.others);
    const std::string list = certificate_list(carried) + (extra.empty() ? "" : ";" + extra);
    const PathCheck check(options_.path);
    for (const Certificate& each : signers_)
        validate_one(check, each, list);
}

std::string VerifiedMessage::trust() const {
    const PathOptions& path = options_.path;
    if (options_.isValidated())
        return std::string("validated: a valid path from a trusted certificate") +
               (path.has_evidence() && path.revocation != "none" ? "" : " (revocation not checked)");
    if (!options_.signer.empty())
        return "the certificate is the one given with --cert; its issuer, usage and revocation not checked";
    return "NOT VALIDATED: the message brought this certificate along, and anybody can make one in\n"
           "              any name. Compare the thumbprint, or give --trusted ROOT or --cert CERT.";
}

std::string VerifiedMessage::describe(const Certificate& each) const {
    const auto item = [&each](const char* name) { return tool::query(each.argument, name); };
    return "  signer      " + item("subjectName") + "\n  issued by   " + item("issuerName") + ", number " +
           item("serialNumber") + "\n  thumbprint  sha256 " + thumbprint(each) + "\n  trust       " +
           trust() + "\n";
}

std::string VerifiedMessage::report() const {
    const bool isAnybody = !options_.isValidated() && options_.signer.empty();
    std::string text =
        message_.name() + ": " +
        (isAnybody ? styled_anywhere(Style::warning, "good signature, but by whom is not validated")
                   : styled_anywhere(Style::good, "good signature")) +
        "\n";
    for (const Certificate& each : signers_)
        text += describe(each);
    if (count_ == 1) {
        const std::string time = message_.query(CMS_QuerySigData, "SigningTime");
        if (!time.empty())
            text += "  time        " + time + " UTC, says the signer\n";
    } else {
        text += "  signatures  " + std::to_string(count_) +
                " in the message; verified is one for each signer above" +
                (static_cast<size_t>(count_) > signers_.size() ? ", and no other\n" : "\n");
    }
    return text;
}

void VerifiedMessage::report_to(JsonObject& about) const {
    JsonArray signers;
    for (const Certificate& each : signers_) {
        JsonObject one;
        for (const char* name : {"subjectName", "issuerName", "serialNumber"})
            one.add(name, tool::query(each.argument, name));
        signers.add(one.add("sha256", thumbprint(each)));
    }
    about.add("signers", signers).add("countOfSigners", count_);
    if (count_ == 1) {
        const std::string time = message_.query_time(CMS_QuerySigData, "SigningTime");
        if (!time.empty())
            about.add("signingTime", time);
    }
    const PathOptions& path = options_.path;
    about.add("trust", options_.isValidated() ? "path" : options_.signer.empty() ? "none" : "certificate");
    about.add("isRevocationChecked",
              options_.isValidated() && path.has_evidence() && path.revocation != "none");
}

SecretBytes VerifiedMessage::content() const {
    SecretBytes content(message_.size() + 1);
    const int length = CMS_ReadSigDataToString(reinterpret_cast<char*>(content.data()),
                                               int_length(content) - 1, message_.path(), 0);
    content.resize(static_cast<size_t>(accept_length(length, message_.name())));
    return content;
}

} // namespace tool
