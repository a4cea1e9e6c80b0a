#pragma once
#include "cert/report/report_writer.h"

namespace zul {

// TextReport writes one field a line: its key, and its value in a column. What belongs to an object or list
// is set in by two blanks; a "-" stands before the first field of each object in a list.
class TextReport final : public ReportWriter {
  public:
    explicit TextReport(TextBuffer& out) : ReportWriter(out) {}

    void begin_item(std::string_view kind, size_t number) override;
    void end_item() override { state_.depth = 0; }
    void begin_object(std::string_view key) override;
    void end_object() override;
    void begin_list(std::string_view key) override;
    void end_list() override { state_.depth--; }
    void begin_choice(std::string_view) override {}
    void end_choice() override {}
    void begin_extension(DerView oid, bool isCritical) override;
    void end_extension() override { state_.hasTitle = false; }
    void begin_words(std::string_view key) override;
    void end_words() override;

    void word(std::string_view key, std::string_view text) override;
    void number(std::string_view key, int64_t value) override;
    void flag(std::string_view key, bool value) override { word(key, value ? "TRUE" : "FALSE"); }
    void null(std::string_view key) override { word(key, "NULL"); }
    void bytes(std::string_view key, DerView value) override;
    void string(std::string_view key, const DerElement& value) override;
    void name(std::string_view key, DerView name) override;
    void relative_name(std::string_view key, DerView relative) override;
    void malformed(std::string_view key, DerView encoding) override;

    Mark mark() const override;
    void rewind(const Mark& mark) override;

  private:
    void put_key(std::string_view key);
    size_t begin_line(std::string_view key); // as far as the value, whose column it gives
    void begin_inside(std::string_view key);
    void put_bytes(DerView value, size_t column);

    TextBuffer title_; // what the next line shows in place of its key
    Mark state_;       // hasItems: of the words; hasDash: the next line is the first of an object in a list
};

} // namespace zul
