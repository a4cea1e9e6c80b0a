#pragma once
#include <optional>

#include "certificate_set.h"

namespace CLI {
class App;
}

// Messages (CMS, PKCS #7) as arguments and results of commands.
namespace tool {

// Message holds a message that was read once, so that the verified bytes are the ones written, even if the
// file changes. A copy of input that was not on disk is wiped.
class Message {
  public:
    explicit Message(const std::string& file);
    Message(const std::string& name, const SecretBytes& content);

    const char* path() const { return copy_.path(); }
    const std::string& name() const { return name_; }
    size_t size() const { return size_; } // no content of it is longer

    // number and query ask about a message of either kind; query gives a readable text.
    using Query = int (*)(char*, int, const char*, const char*, int);
    int number(Query ask, const std::string& name) const;
    std::string query(Query ask, const std::string& name) const;

    // query_time gives a time of a query as "2026-01-31T12:30:00Z", or empty.
    std::string query_time(Query ask, const std::string& name) const;

    // The X.509 certificates that a signed message carries.
    int certificate_count() const;
    Certificate certificate(int number) const; // from 1

  private:
    std::string name_;
    ScratchFile copy_;
    size_t size_ = 0;
};

// ContentFile is the content of a new message as the library takes it, the name of a file. Standard input and
// pipes get a file of their own, which is wiped.
class ContentFile {
  public:
    explicit ContentFile(const std::string& file);
    ContentFile(const std::string& name, const SecretBytes& content);
    ContentFile(const ContentFile&) = delete;
    ContentFile& operator=(const ContentFile&) = delete;

    const char* path() const { return path_.c_str(); }
    const std::string& name() const { return name_; }

  private:
    std::string name_, path_;
    std::optional<ScratchFile> scratch_;
};

// MessageSigner is who signs a message: the key, and the certificates that go with it, the signer's first.
// Refused if that is not the key's; in is the command's other input.
struct MessageSigner {
    RsaKey key;
    std::vector<Certificate> certificates;

    MessageSigner(const RsaKeyOption& keyOption, const std::string& in, const std::string& signer,
                  const std::vector<std::string>& others);
};

// read_recipients reads the certificates of those who will read a message. Refused for a key that is not RSA.
std::vector<Certificate> read_recipients(const std::vector<std::string>& files);
// encrypt_message encrypts content for all recipients, or is refused. choice: options of CMS_MakeEnvData.
void encrypt_message(const ScratchFile& made, const ContentFile& content,
                     const std::vector<Certificate>& recipients, int choice);
// decrypt_message gives the content; recipient is the name of a certificate's file, or empty.
SecretBytes decrypt_message(const Message& message, const std::string& recipient, const RsaKey& key);

// What makers share: the file that they make, DER or base64.
struct MessageOutput {
    std::string out = "-";
    bool base64 = false;

    void add_to(CLI::App& command);
    // check refuses an output that would replace an input, or that a terminal cannot take.
    void check(const std::vector<std::string>& inputs) const;
    int option() const { return base64 ? ZUL_CMS_FORMAT_BASE64 : 0; }
};

// check_list refuses more certificates than the library takes into a list.
void check_list(size_t count);
// warn_of_use warns of a certificate out of date, or whose key is for other things than one of the uses.
void warn_of_use(const Certificate& certificate, int uses, const std::string& usesInWords);

void add_cms_sign_command(CLI::App& group);
void add_cms_verify_command(CLI::App& group);
void add_cms_encrypt_command(CLI::App& group);
void add_cms_decrypt_command(CLI::App& group);
void add_cms_show_command(CLI::App& group);
void add_cms_certs_commands(CLI::App& app);

} // namespace tool
