#pragma once
#include "cert/names/name_print.h"
#include "cert/report/report_writer.h"

namespace zul {

// JsonReport writes JSON (RFC 8259) in one line: {"objects":[...]}. Texts are valid UTF-8 whatever the object
// holds: a byte that encodes no character becomes U+FFFD.
class JsonReport final : public ReportWriter {
  public:
    explicit JsonReport(TextBuffer& out) : ReportWriter(out) { out_.put("{\"objects\":["); }
    void finish() { out_.put("]}\n"); }

    void begin_item(std::string_view kind, size_t number) override;
    void end_item() override { close('}'); }
    void begin_object(std::string_view key) override { open(key, '{'); }
    void end_object() override { close('}'); }
    void begin_list(std::string_view key) override { open(key, '['); }
    void end_list() override { close(']'); }
    void begin_choice(std::string_view key) override { open(key, '{'); }
    void end_choice() override { close('}'); }
    void begin_extension(DerView oid, bool isCritical) override;
    void end_extension() override { close('}'); }
    void begin_words(std::string_view key) override { open(key, '['); }
    void end_words() override { close(']'); }

    void word(std::string_view key, std::string_view text) override;
    void number(std::string_view key, int64_t value) override;
    void flag(std::string_view key, bool value) override;
    void null(std::string_view key) override;
    void bytes(std::string_view key, DerView value) override;
    void string(std::string_view key, const DerElement& value) override;
    void name(std::string_view key, DerView name) override;
    void relative_name(std::string_view key, DerView relative) override;
    void malformed(std::string_view key, DerView encoding) override;

    Mark mark() const override;
    void rewind(const Mark& mark) override;

  private:
    void begin_value(std::string_view key);
    void open(std::string_view key, char bracket);
    void close(char bracket);
    void put_text(std::string_view utf8);
    void put_characters(const DerElement& value);
    bool put_attributes(NameReader reader);

    bool hasItems_ = false; // in the innermost object or list
};

} // namespace zul
