#pragma once
#include <optional>

#include "cms_message.h"
#include "mime_entity.h"

// What the commands for signed and encrypted mail (S/MIME, RFC 8551) share.
namespace tool {

// MailSource is what is to be protected: a message, or a file that becomes the only part of one.
struct MailSource {
    std::string file, as;

    void add_to(CLI::App& command);
};

// MailHeader are the fields outside of what is protected.
class MailHeader {
  public:
    void add_to(CLI::App& command);
    void check() const; // refuses what would make other fields, and what is no address

    std::string from() const { return from_; }
    // fields gives what was asked for, and a date where that makes a message of a file; old: what there is.
    SecretBytes fields(const std::vector<MimeField>& old) const;

  private:
    std::string from_, subject_;
    std::vector<std::string> to_;
};

// Mail is a message that was taken apart: the fields that stay outside, and the entity in canonical form.
class Mail {
  public:
    Mail(const MailSource& source, LineForm form);
    Mail(const Mail&) = delete;
    Mail& operator=(const Mail&) = delete;

    const std::string& name() const { return name_; }
    const std::vector<MimeField>& outside() const { return outside_; }
    const SecretBytes& inside() const { return inside_; }

  private:
    std::string name_;
    SecretBytes text_;
    std::vector<MimeField> outside_;
    SecretBytes inside_;
};

// IncomingMail is a message that was read for opening.
class IncomingMail {
  public:
    explicit IncomingMail(const std::string& file);
    IncomingMail(const IncomingMail&) = delete;
    IncomingMail& operator=(const IncomingMail&) = delete;

    const MimeEntity& entity() const { return *entity_; }
    const std::string& name() const { return entity_->name; }

  private:
    SecretBytes text_;
    std::optional<MimeEntity> entity_;
};

// is_content_field is true for fields that belong to the entity, not to the message.
bool is_content_field(const MimeField& field);
// is_cms_entity is true for an entity that is one signed or encrypted message (application/pkcs7-mime).
bool is_cms_entity(const MimeEntity& entity);
// is_multipart_signed is true for content and signature side by side.
bool is_multipart_signed(const MimeEntity& entity);

// content_digest gives the digest in hex.
std::string content_digest(const SecretBytes& content, const Digest& digest);
// append_cms_part writes the header and body of a part that is a CMS message.
void append_cms_part(SecretBytes& out, const std::string& type, const std::string& file,
                     const ScratchFile& message);

// body_of gives the decoded body of an entity that has only one.
SecretBytes body_of(const SecretBytes& entity, const std::string& name);

void add_mail_sign_command(CLI::App& group);
void add_mail_verify_command(CLI::App& group);
void add_mail_encrypt_command(CLI::App& group);
void add_mail_decrypt_command(CLI::App& group);

} // namespace tool
