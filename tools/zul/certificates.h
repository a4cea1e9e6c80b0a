#pragma once
#include <string>
#include <vector>

#include "algorithms.h"
#include "failures.h"
#include "rsa_keys.h"

// Certificates, requests and revocation lists as arguments and results of commands.
namespace tool {

class Description;

// ObjectArgument is a file, or standard input, as the library takes it.
class ObjectArgument {
  public:
    explicit ObjectArgument(const std::string& file);
    // content: what was read from the file before, DER.
    ObjectArgument(const std::string& file, const SecretBytes& content);

    const char* text() const { return as_text(text_); } // a file's name, or PEM
    const std::string& name() const { return name_; }   // in messages

  private:
    std::string name_;
    SecretBytes text_; // with its NUL
};

// certificate_object refuses anything but a certificate; the message names the file.
ObjectArgument certificate_object(const std::string& file);

// der_of gives the DER of the first object in a file or of standard input.
SecretBytes der_of(const std::string& file);

// ScratchFile is a temporary file that the library writes to. The result goes to its file, or to standard
// output, only after it is complete and checked.
class ScratchFile {
  public:
    explicit ScratchFile(bool isSecret = false); // it is wiped then
    ScratchFile(const ScratchFile&) = delete;
    ScratchFile& operator=(const ScratchFile&) = delete;
    ~ScratchFile();

    const char* path() const { return path_.c_str(); }
    void deliver(const std::string& out) const;
    void deliver_der(const std::string& out) const; // of what is PEM

  private:
    void remove() const;

    bool isSecret_;
    std::string folder_, path_;
};

// readable turns Latin-1 into UTF-8 and control characters, which could steer a terminal, into "\x1b"; line
// feeds stay if they are wanted.
std::string readable(std::string_view latin1, bool keepLineFeeds = false);

// query asks X509_QueryCert for a text.
std::string query(const ObjectArgument& certificate, const char* name);

// signing_key reads a private key and tries it: one whose values contradict each other would reveal its
// secret numbers in its signatures. in: the command's other input.
Key signing_key(const KeyFileOption& key, const std::string& in);
// The library asks for a password also where a key string needs none.
constexpr const char* kNoPassword = "none";

// SigningOptions are the algorithm of a signature and the form of what is signed.
struct SigningOptions {
    std::string digest, alg;
    bool der = false, pem = false;

    void add_to(CLI::App& command);
    // put chooses the algorithm in a description; without a choice it is the usual one of the key's kind.
    void put(Description& description, const Key& signer) const;
    int algorithm() const; // as the option of the X509_ and CMS_ functions
    std::string digest_name() const { return digest.empty() ? "sha256" : digest; }
    int form() const { return der ? 0 : ZUL_X509_FORMAT_PEM; }

  private:
    const Digest& checked_digest() const; // warns of one that is broken
};

void add_show_command(CLI::App& group, const std::string& what, const std::string& example);

// --- what people write (certificate_texts.cpp) -----------------------------------------------------------

// date_text reads "2026-01-31", perhaps with "T" or a blank and "12:30" or "12:30:00", perhaps with "Z";
// without a time it adds time, such as "T23:59:59". Results compare as texts.
std::string date_text(const std::string& text, const std::string& option, const std::string& time);
std::string now_text(int secondsAgo);

// serial_hex reads a serial number, decimal or hex after "0x", of any size: hex digits of whole bytes.
std::string serial_hex(const std::string& text, const std::string& option);
std::string random_serial();

// key_usage reads names of RFC 5280 joined by ",": ZUL_KEYUSAGE_ bits; "none" is 0.
int key_usage(const std::string& names);

// read_name refuses what the X509_ functions would leave out of a distinguished name, or make something else
// of, without a word; NameForm::any also takes the attributes that only the CERT_ functions know.
struct Name {
    std::string text;
    bool isAscii = true; // else it needs UTF8String
};
enum class NameForm { old, any };
Name read_name(const std::string& text, NameForm form);
// quote_value gives a value that may hold anything but zero bytes.
std::string quote_value(std::string_view value);

// --- names of requests (request_subject.cpp) -------------------------------------------------------------

// RequestParts are what a certificate takes over from a request: the key, and the name as the text that makes
// it again.
struct RequestParts {
    SecretBytes publicKey; // DER
    bool asksExtensions = false;

    RequestParts(const SecretBytes& request, const std::string& name);
    Name subject() const; // Refused for a name that has no such text, or is empty

  private:
    const SecretBytes& request_;
    std::string name_;
};

// RequestArgument is a request in a file or standard input.
class RequestArgument {
  public:
    explicit RequestArgument(const std::string& file)
        : content_(der_of(file)), object_(file, content_), parts_(content_, object_.name()) {}

    const char* text() const { return object_.text(); }
    const std::string& name() const { return object_.name(); }
    const RequestParts& parts() const { return parts_; }
    // warn_of_extensions: it asks for some, and none is copied.
    void warn_of_extensions(const std::vector<std::string>& copies) const;

  private:
    SecretBytes content_;
    ObjectArgument object_;
    RequestParts parts_;
};

} // namespace tool
