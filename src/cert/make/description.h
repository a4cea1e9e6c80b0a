#pragma once
#include <string_view>

#include "frame/memory.h"

// Descriptions of certificates, requests and CRLs: keyword=value pairs joined by ";". Blanks and line ends
// around keywords and values do not count. A value in single quotes may hold anything, and a backslash there
// makes the next character literal; a quote inside another value is itself. Keywords that take several values
// part them by commas. A flag stands alone, or as "=true" or "=false".
namespace zul {

constexpr size_t kMaxDescription = 1 << 18; // bytes

enum class DescriptionForm { text, list, flag };

struct DescriptionKeyword {
    const char* keyword; // in the case in which texts show it
    DescriptionForm form;
    bool repeats; // may stand several times
};

// One value of one keyword.
struct DescriptionItem {
    const DescriptionKeyword* row; // null: a keyword that the table lacks
    const char* keyword;
    std::string_view value; // of a text or list, not empty, with a NUL behind it
    bool isSet;             // of a flag
};

// DescriptionReader reads a text with a table of at most kMaxKeywords rows.
class DescriptionReader {
  public:
    static constexpr size_t kMaxKeywords = 64;

    DescriptionReader(const char* text, const DescriptionKeyword* rows, size_t count);

    // next gives the next item, valid until the next call; null at the end and after a failure.
    const DescriptionItem* next();
    // fail adds to the error text in which item the failure lies, and gives the code.
    [[nodiscard]] int fail(int code) const;
    [[nodiscard]] int unknown() const; // BAD_PARAM_ERROR for a keyword that nobody knows, which it names
    [[nodiscard]] int error() const { return error_; } // 0 or BAD_PARAM_ERROR, with a text

  private:
    void refuse(const char* why);
    bool begin_pair();
    bool read_flag();
    bool read_value();
    bool read_quoted();
    void skip_blanks();

    const DescriptionKeyword* rows_;
    size_t count_;
    std::string_view rest_;
    bool inList_ = false; // another value of the same keyword follows
    uint64_t seen_ = 0;   // rows, as bits
    int error_ = 0;
    SecretBuffer keyword_, value_;
    DescriptionItem item_{};
};

// A row of a table that tells what to do with the values: take gives 0 or a code with a text.
template<class Target>
struct DescriptionRow : DescriptionKeyword {
    int (*take)(Target& target, const DescriptionItem& item);
};

// description_read passes every value to its row's function, and those of keywords that the table lacks to
// other, which may be null. 0 or the code of the first failure, with a text that names keyword and value.
template<class Target, size_t count>
[[nodiscard]] int description_read(const char* text, const DescriptionRow<Target> (&rows)[count],
                                   Target& target,
                                   int (*other)(Target& target, const DescriptionReader& reader,
                                                const DescriptionItem& item) = nullptr) {
    DescriptionKeyword keywords[count];
    for (size_t i = 0; i < count; i++)
        keywords[i] = rows[i];
    DescriptionReader reader(text, keywords, count);
    while (const DescriptionItem* item = reader.next()) {
        int error = 0;
        if (item->row != nullptr)
            error = rows[item->row - keywords].take(target, *item);
        else
            error = other != nullptr ? other(target, reader, *item) : reader.unknown();
        if (error != 0)
            return reader.fail(error);
    }
    return reader.error();
}

} // namespace zul
