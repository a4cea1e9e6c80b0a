#include "streams.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>

#include "failures.h"
#include "operating_system.h"

namespace tool {

namespace {

bool is_read_only(const std::string& file) {
    using std::filesystem::perms;
    constexpr perms kWriters = perms::owner_write | perms::group_write | perms::others_write;
    std::error_code error;
    const auto status = std::filesystem::status(path_of(file), error);
    return is_on_disk(file) && !error && (status.permissions() & kWriters) == perms::none;
}

} // namespace

Input::Input(const std::string& name) : name_(shown_name(name)), file_(stdin) {
    if (is_standard_stream(name))
        return;
    std::error_code ignored;
    file_ = std::filesystem::is_directory(path_of(name), ignored) ? nullptr : std::fopen(name.c_str(), "rb");
    if (file_ == nullptr)
        throw Refused::by_system(OPEN_ERROR, name);
    std::setvbuf(file_, nullptr, _IONBF, 0);
}

Input::~Input() {
    if (file_ != stdin)
        static_cast<void>(std::fclose(file_));
}

size_t Input::read(unsigned char* out, size_t size) {
    const size_t count = std::fread(out, 1, size, file_);
    if (count < size && std::ferror(file_))
        throw Refused::by_system(READ_ERROR, name_);
    return count;
}

int64_t Input::bytes_left() const {
    return tool::bytes_left(file_);
}

void Input::refuse_output(const std::string& out) const {
    std::FILE* other = is_standard_stream(out) ? stdout
                       : is_on_disk(out)       ? std::fopen(out.c_str(), "rb")
                                               : nullptr;
    const bool isInput = other != nullptr && are_one_file(file_, other);
    if (other != nullptr && other != stdout)
        static_cast<void>(std::fclose(other));
    if (isInput)
        throw Refused::by_system(BAD_PARAM_ERROR, name_, "IN and OUT are the same file.");
}

bool Input::become_standard_input() const {
    return make_standard_input(file_);
}

void Input::each_piece(const std::function<bool(const unsigned char*, size_t)>& take) {
    SecretBytes piece(kChunk);
    for (size_t count = kChunk; count == kChunk;) {
        count = read(piece.data(), kChunk);
        if (count > 0 && !take(piece.data(), count))
            return;
    }
}

SecretBytes Input::read_all() {
    SecretBytes content(kChunk);
    size_t filled = 0;
    for (;;) {
        const size_t wanted = content.size() - filled;
        const size_t count = read(content.data() + filled, wanted);
        filled += count;
        if (count < wanted)
            break;
        if (filled == kMaxLength)
            throw Refused::by_system(OUT_OF_RANGE_ERROR, name_, "This takes less than 2 GiB of data.");
        content.resize(std::min(content.size() * 2, kMaxLength));
    }
    content.resize(filled);
    return content;
}

Output::Output(const std::string& name, bool forOwnerAlone) : name_(name), file_(stdout) {
    if (is_standard_stream(name)) {
        name_ = "standard output";
        return;
    }
    file_ = is_read_only(name) ? nullptr
            : forOwnerAlone    ? create_for_owner(name)
                               : std::fopen(name.c_str(), "wb");
    if (file_ == nullptr)
        throw Refused::by_system(CREATE_ERROR, name);
    std::setvbuf(file_, nullptr, _IONBF, 0);
    if (is_on_disk(name)) // never a device
        remove_on_signal("", name);
}

Output::~Output() {
    if (file_ == nullptr || file_ == stdout)
        return;
    static_cast<void>(std::fclose(file_));
    std::error_code ignored;
    if (!is_on_disk(name_)) // never a device
        return;
    std::filesystem::resize_file(path_of(name_), 0, ignored);  // it may have other names
    if (!std::filesystem::is_symlink(path_of(name_), ignored)) // as /dev/stdout is
        std::filesystem::remove(path_of(name_), ignored);
    keep_on_signal("", name_);
}

void Output::write(const void* data, size_t size) {
    if (size > 0 && std::fwrite(data, 1, size, file_) != size)
        throw Refused::by_system(WRITE_ERROR, name_);
}

void Output::finish() {
    std::FILE* file = file_ == stdout ? stdout : std::exchange(file_, nullptr);
    const bool lost = file == stdout ? std::fflush(file) != 0 : std::fclose(file) != 0;
    if (file != stdout)
        keep_on_signal("", name_);
    if (lost)
        throw Refused::by_system(WRITE_ERROR, name_);
}

size_t copy_all(Input& input, Output& output) {
    size_t size = 0;
    input.each_piece([&](const unsigned char* piece, size_t count) {
        output.write(piece, count);
        size += count;
        return true;
    });
    output.finish();
    return size;
}

void write_file(const std::string& name, const SecretBytes& content, bool forOwnerAlone) {
    Output output(name, forOwnerAlone);
    output.write(content);
    output.finish();
}

} // namespace tool
