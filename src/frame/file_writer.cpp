#include "frame/file_writer.h"

#include <cstring>

namespace zul {

FileWriter::FileWriter(const char* path, const WriteRules& rules) : path_(path), rules_(rules) {
    if (rules.input != nullptr && is_same_file(rules.input, path))
        return;
    // Before there is a file: the end of the process, if memory runs out, would leave it empty.
    buffer_ = SecretBuffer(kFirstBuffer);
    if (rules.replaces)
        open_to_replace();
    else
        file_ = File(path, rules.secret ? platform::OpenMode::createSecret : platform::OpenMode::create);
}

FileWriter::FileWriter(File file) : path_(nullptr), file_(std::move(file)) {
    if (file_.is_open())
        buffer_ = SecretBuffer(kFirstBuffer);
}

void FileWriter::open_to_replace() {
    newPath_ = SecretBuffer(strlen(path_) + platform::kBesideSuffix);
    bool inPlace = false;
    file_ = File(platform::file_create_beside(path_, rules_.secret, newPath_.text(), &inPlace));
    if (file_.is_open())
        return;
    newPath_ = SecretBuffer();
    if (inPlace)
        file_ = File(path_, rules_.secret ? platform::OpenMode::createSecret : platform::OpenMode::create);
}

FileWriter::~FileWriter() {
    if (!file_.is_open() || finished_)
        return;
    if (rules_.keepsPart && newPath_.empty())
        flush();
    else
        discard();
}

void FileWriter::discard() {
    if (!newPath_.empty()) {
        file_.close();
        platform::file_remove(newPath_.text());
        return;
    }
    if (path_ == nullptr)
        return;
    const bool removable = platform::file_is_regular(path_) && platform::file_is(file_.handle(), path_);
    if (removable)
        platform::file_empty(file_.handle()); // another name of the file, a link, must not keep a part
    file_.close();
    if (removable)
        platform::file_remove(path_);
}

bool FileWriter::put(const uint8_t* bytes, size_t size) {
    failed_ = failed_ || !platform::file_write(file_.handle(), bytes, size);
    return !failed_;
}

bool FileWriter::flush() {
    const size_t size = std::exchange(filled_, 0);
    return put(buffer_.data(), size);
}

bool FileWriter::write(const void* data, size_t size) {
    const auto* bytes = static_cast<const uint8_t*>(data);
    if (!failed_ && size >= buffer_.size() - filled_) {
        // Large data bypasses the buffer.
        flush();
        if (size >= kStreamBuffer)
            return put(bytes, size);
        if (buffer_.size() < kStreamBuffer)
            buffer_ = SecretBuffer(kStreamBuffer);
    }
    if (failed_)
        return false;
    if (size > 0)
        memcpy(buffer_.data() + filled_, bytes, size);
    filled_ += size;
    return true;
}

bool FileWriter::finish() {
    if (!file_.is_open() || !flush())
        return false;
    finished_ = newPath_.empty() ? close() : replace();
    return finished_;
}

bool FileWriter::close() {
    closeFailed_ = !file_.close();
    if (closeFailed_ && !rules_.keepsPart && path_ != nullptr)
        discard_file(path_);
    return !closeFailed_;
}

// The new file is committed first, so a full disk is noticed before the old file is touched, and a crash of
// the system leaves one of the two. Files of any size do without: the wait would be longer than the work.
bool FileWriter::replace() {
    const bool committed = !rules_.commits || platform::file_commit(file_.handle());
    const bool whole = file_.close() && committed;
    if (whole && platform::file_replace(newPath_.text(), path_))
        return true;
    bool emptied = false;
    const bool copied = whole && copy_in_place(emptied);
    if (copied || !emptied) // else the new file is the only copy left
        platform::file_remove(newPath_.text());
    return copied;
}

// Some files cannot be replaced (a mount point, another user's file in a shared folder), so their content is
// overwritten. emptied is set once the old content is lost.
bool FileWriter::copy_in_place(bool& emptied) const {
    FileReader reader(newPath_.text());
    if (!reader.is_open())
        return false;
    FileWriter writer(path_, {.secret = rules_.secret});
    if (!writer.is_open())
        return false;
    emptied = true;
    SecretBuffer part(kStreamBuffer);
    while (const size_t got = reader.read(part.data(), part.size()))
        if (!writer.write(part.data(), got))
            return false;
    return !reader.failed() && writer.finish();
}

} // namespace zul
