#pragma once
#include <functional>

#include "cms_message.h"
#include "json_text.h"
#include "path_options.h"

// The signatures of a message, and who signed.
namespace tool {

// SignatureOptions say whose signature a message has to have.
struct SignatureOptions {
    std::string signer; // --cert
    std::vector<std::string> others;
    PathOptions path;

    void add_to(CLI::App& command, const std::string& usualPurpose = "any");
    bool isValidated() const { return !path.trusted.empty(); }
    // check refuses options that contradict each other, two inputs from one stream, and an output that would
    // replace an input; inputs are the command's others.
    void check(std::vector<std::string> inputs, const std::string& out) const;
};

// VerifiedMessage is a message whose signatures are good, by signers whom the options accept. It is refused
// otherwise.
class VerifiedMessage {
  public:
    // The digest in hex of content that the message does not carry, by the signer's algorithm (null if it is
    // not known); an empty text if there is none.
    using ContentDigest = std::function<std::string(const Digest* algorithm)>;
    VerifiedMessage(const Message& message, const SignatureOptions& options, const ContentDigest& digest);

    // Those whose signatures are good.
    const std::vector<Certificate>& signers() const { return signers_; }
    std::string report() const; // lines
    void report_to(JsonObject& about) const;
    SecretBytes content() const; // that the message carries

  private:
    std::vector<Certificate> candidates() const;
    void find_signers(const std::vector<Certificate>& certificates, const std::vector<std::string>& hashes);
    void validate(std::vector<Certificate> carried) const;
    std::string trust() const;
    std::string describe(const Certificate& each) const;

    const Message& message_;
    const SignatureOptions& options_;
    int count_; // of signatures
    std::vector<Certificate> signers_;
};

} // namespace tool
