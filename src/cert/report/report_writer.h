#pragma once
#include "asn1/der_reader.h"
#include "frame/text_buffer.h"

namespace zul {

// ReportWriter takes the fields of objects in their order and gives them a form. key is a field's name, empty
// for an item of a list. Texts of type std::string_view are the library's own, in ASCII; all that comes from
// an object goes through string, ascii, name and bytes.
class ReportWriter {
  public:
    ReportWriter(const ReportWriter&) = delete;
    ReportWriter& operator=(const ReportWriter&) = delete;

    // An object of the report. Its number, from 1, is 0 if it is the only one.
    virtual void begin_item(std::string_view kind, size_t number) = 0;
    virtual void end_item() = 0;
    virtual void begin_object(std::string_view key) = 0;
    virtual void end_object() = 0;
    virtual void begin_list(std::string_view key) = 0;
    virtual void end_list() = 0;
    // A choice holds one field, whose key says which alternative it is.
    virtual void begin_choice(std::string_view key) = 0;
    virtual void end_choice() = 0;
    // An extension holds one field, its value.
    virtual void begin_extension(DerView oid, bool isCritical) = 0;
    virtual void end_extension() = 0;
    // A list of words.
    virtual void begin_words(std::string_view key) = 0;
    virtual void end_words() = 0;

    virtual void word(std::string_view key, std::string_view text) = 0;
    virtual void number(std::string_view key, int64_t value) = 0;
    virtual void flag(std::string_view key, bool value) = 0;
    virtual void null(std::string_view key) = 0;
    virtual void bytes(std::string_view key, DerView value) = 0;
    virtual void string(std::string_view key, const DerElement& value) = 0; // of any type
    virtual void name(std::string_view key, DerView name) = 0;
    virtual void relative_name(std::string_view key, DerView relative) = 0;
    virtual void malformed(std::string_view key, DerView encoding) = 0;

    void ascii(std::string_view key, DerView content) {
        DerElement element;
        element.identifier = kDerIa5String;
        element.content = element.encoding = content;
        string(key, element);
    }

    // rewind takes back what was written since mark.
    struct Mark {
        size_t size = 0, depth = 0;
        bool hasItems = false, hasDash = false, hasTitle = false, isInWords = false;
    };
    virtual Mark mark() const = 0;
    virtual void rewind(const Mark& mark) = 0;

  protected:
    explicit ReportWriter(TextBuffer& out) : out_(out) {}
    ~ReportWriter() = default;

    TextBuffer& out_;
};

// show_guarded writes a field, or, if show gives false, the field's encoding as a malformed one.
template<class Show>
void show_guarded(ReportWriter& report, std::string_view key, DerView encoding, Show show) {
    const ReportWriter::Mark mark = report.mark();
    if (show())
        return;
    report.rewind(mark);
    report.malformed(key, encoding);
}

} // namespace zul
