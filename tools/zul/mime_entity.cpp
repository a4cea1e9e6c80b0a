#include "mime_entity.h"

#include <algorithm>

#include "failures.h"
#include "mime_text.h"

namespace tool {

namespace {

constexpr size_t kMostParts = 10000;
constexpr int kDeepest = 30;

[[noreturn]] void refuse(const std::string& name, const std::string& reason) {
    throw Refused::by_system(BAD_FORMAT_ERROR, name, reason);
}

bool is_coded(const std::string& encoding) {
    return !encoding.empty() && encoding != "7bit" && encoding != "8bit" && encoding != "binary";
}

std::string boundary_of(const MimeEntity& entity) {
    constexpr size_t kLongest = 70;
    std::string boundary = entity.type().parameter("boundary");
    if (boundary.empty() || boundary.size() > kLongest || !is_ascii_text(boundary) || boundary.ends_with(' '))
        refuse(entity.name, "Its Content-Type has no boundary, or a malformed one.");
    return boundary;
}

class Canonical {
  public:
    Canonical(SecretBytes& out, LineForm form) : out_(out), form_(form) {}

    void entity(const MimeEntity& entity, bool (*keep)(const MimeField&), int depth) {
        if (depth > kDeepest)
            refuse(entity.name,
                   "Its parts are nested more than " + std::to_string(kDeepest) + " levels deep.");
        const MimeValue type = entity.type();
        const std::string encoding = entity.encoding();
        const bool isCoded = is_coded(encoding);
        if (type.word() == "multipart/signed" && !isCoded) {
            if (form_ == LineForm::sevenBits && !fits_seven_bits(entity.body))
                refuse(entity.name,
                       "It holds a signed part that is not ASCII in lines of 998 characters at most, "
                       "and must not be changed; --opaque takes it.");
            header(entity, keep, encoding, encoding);
            append_canonical(out_, entity.body);
        } else if (type.group() == "multipart" && !isCoded) {
            const Multipart multipart(entity, false);
            header(entity, keep, encoding, encoding == "7bit" ? encoding : "");
            parts(multipart, boundary_of(entity), entity.name, depth);
        } else if (type.word() == "message/rfc822" && !isCoded) {
            header(entity, keep, encoding, encoding == "7bit" ? encoding : "");
            this->entity({entity.body, entity.name}, nullptr, depth + 1);
        } else {
            leaf(entity, keep, type, encoding, isCoded);
        }
    }

  private:
    void line(std::string_view text) {
        append(out_, text);
        append(out_, "\r\n");
    }

    // header writes the fields and the empty line, with another transfer encoding if that changes.
    void header(const MimeEntity& entity, bool (*keep)(const MimeField&), const std::string& before,
                const std::string& encoding) {
        for (const MimeField& field : entity.header.fields()) {
            const bool isReplaced = field.name == "content-transfer-encoding" && encoding != before;
            if ((keep == nullptr || keep(field)) && !isReplaced) {
                append_canonical(out_, field.raw);
                if (!field.raw.ends_with('\n'))
                    line("");
            }
        }
        if (encoding != before && !encoding.empty())
            line("Content-Transfer-Encoding: " + encoding);
        line("");
    }

    void around(std::string_view text, const std::string& name) {
        if (form_ == LineForm::sevenBits && !fits_seven_bits(text))
            refuse(name, "Text around its parts is not ASCII in lines of 998 characters at most.");
        append_canonical(out_, text);
    }

    void parts(const Multipart& multipart, const std::string& boundary, const std::string& name, int depth) {
        around(multipart.before, name);
        for (const std::string_view part : multipart.parts) {
            line("--" + boundary);
            if (!part.empty())
                entity({part, name}, nullptr, depth + 1);
            line("");
        }
        append(out_, "--" + boundary + "--");
        around(multipart.after, name);
    }

    void leaf(const MimeEntity& entity, bool (*keep)(const MimeField&), const MimeValue& type,
              const std::string& encoding, bool isCoded) {
        const bool isBinary = encoding == "binary";
        const bool fits = form_ == LineForm::any || fits_seven_bits(entity.body);
        if (fits && !isBinary) {
            header(entity, keep, encoding,
                   encoding == "8bit" && form_ == LineForm::sevenBits ? "7bit" : encoding);
            append_canonical(out_, entity.body);
            return;
        }
        if (isCoded)
            refuse(entity.name, "A body is not in the transfer encoding that its header tells.");
        if (type.group() == "text" && !isBinary && entity.body.find('\0') == std::string_view::npos) {
            header(entity, keep, encoding, "quoted-printable");
            SecretBytes text;
            append_canonical(text, entity.body);
            append_quoted_printable(out_, view_of(text));
        } else {
            header(entity, keep, encoding, "base64");
            append_base64(out_, entity.body);
        }
    }

    SecretBytes& out_;
    LineForm form_;
};

} // namespace

MimeEntity::MimeEntity(std::string_view text, const std::string& entityName)
    : header(MimeHeader::read(text, entityName)), body(text), name(entityName) {}

MimeValue MimeEntity::type() const {
    const std::string value = header.value("content-type");
    return {value.empty() ? "text/plain" : value, name};
}

std::string MimeEntity::encoding() const {
    const std::string value = header.value("content-transfer-encoding");
    return value.empty() ? "" : MimeValue(value, name).word();
}

SecretBytes MimeEntity::decoded() const {
    return decode_transfer(body, encoding(), name);
}

bool looks_like_message(std::string_view text) {
    try {
        const MimeHeader header = MimeHeader::read(text, {});
        return std::any_of(header.fields().begin(), header.fields().end(), [](const MimeField& field) {
            for (const char* known : {"from", "to", "subject", "date", "message-id", "mime-version",
                                      "received", "return-path", "content-type"})
                if (field.name == known)
                    return true;
            return false;
        });
    } catch (const Refused&) {
        return false;
    }
}

Multipart::Multipart(const MimeEntity& entity, bool isStrict) {
    if (is_coded(entity.encoding()))
        refuse(entity.name, "Its parts as a whole have a transfer encoding, which is not allowed.");
    const std::string mark = "--" + boundary_of(entity);
    std::string_view rest = entity.body;
    if (isStrict && rest.find("\r" + mark) != rest.npos)
        refuse(entity.name,
               "A boundary of its parts follows a CR that ends no line; readers disagree about such lines.");
    const char* begin = rest.data(); // of the present part, or of what is before the first one
    bool isBefore = true, isClosed = false;
    const auto take_part = [&](const char* end) {
        std::string_view text(begin, static_cast<size_t>(end - begin));
        if (isBefore) {
            before = text;
        } else {
            parts.push_back(without_line_end(text));
            if (parts.size() > kMostParts)
                refuse(entity.name, "It has more than 10,000 parts.");
        }
        isBefore = false;
    };
    while (!rest.empty()) {
        const char* at = rest.data();
        const std::string_view whole = next_line(rest);
        if (!whole.starts_with(mark))
            continue;
        std::string_view tail = without_line_end(whole).substr(mark.size());
        while (!tail.empty() && is_blank(tail.back()))
            tail.remove_suffix(1);
        const bool isKnown = tail.empty() || tail == "--";
        if (isStrict && (!isKnown || isClosed))
            refuse(entity.name, isClosed
                                    ? "A boundary of its parts follows the last one."
                                    : "A line begins like a boundary of its parts and goes on differently; "
                                      "readers disagree about such lines.");
        if (!isKnown || isClosed)
            continue;
        take_part(at);
        begin = rest.data();
        if (tail == "--") {
            isClosed = true;
            // The line end of the last boundary is part of what follows it.
            const char* last = at + without_line_end(whole).size();
            after = {last, static_cast<size_t>(rest.data() + rest.size() - last)};
            if (!isStrict)
                return;
        }
    }
    if (!isClosed)
        refuse(entity.name, "The last boundary of its parts is missing: it was cut off.");
}

void append_entity(SecretBytes& out, const MimeEntity& entity, LineForm form,
                   bool (*keep)(const MimeField& field)) {
    Canonical(out, form).entity(entity, keep, 0);
}

} // namespace tool
