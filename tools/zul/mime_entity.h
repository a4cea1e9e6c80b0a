#pragma once
#include "mime_header.h"
#include "secret_bytes.h"

// Messages and their parts (RFC 2045, 2046).
namespace tool {

// MimeEntity is a message or a part: a header and a body, views of the text that it was read from.
struct MimeEntity {
    MimeHeader header;
    std::string_view body;
    std::string name; // for messages

    MimeEntity(std::string_view text, const std::string& entityName);

    MimeValue type() const;       // Content-Type; text/plain if there is none
    std::string encoding() const; // Content-Transfer-Encoding in lower case, perhaps empty
    SecretBytes decoded() const;  // the body without its transfer encoding
};

// looks_like_message is true for text that begins with a header with a field that mail has.
bool looks_like_message(std::string_view text);

// Multipart is the body of an entity of several parts.
struct Multipart {
    std::string_view before, after; // with their line ends
    std::vector<std::string_view> parts;

    // isStrict refuses lines that begin like a boundary and go on differently, and boundaries behind the last
    // one, since readers disagree about both.
    Multipart(const MimeEntity& entity, bool isStrict);
};

// What comes of a canonical form's lines: any bytes, or those that every mail system passes on.
enum class LineForm { any, sevenBits };
// append_entity writes an entity in canonical form (RFC 8551, 3.1): lines end with CR LF, and bodies that
// cannot have that form get a transfer encoding. Fields that tell keep says no to are left out.
void append_entity(SecretBytes& out, const MimeEntity& entity, LineForm form,
                   bool (*keep)(const MimeField& field));

} // namespace tool
