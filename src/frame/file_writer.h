#pragma once
#include "frame/file_stream.h"

namespace zul {

// WriteRules are the options of a FileWriter.
struct WriteRules {
    bool secret = false;    // only the file's owner may read it, also if it existed before
    bool replaces = false;  // an existing regular file is replaced in one step, as the writer finishes
    bool commits = true;    // a replacement is on the disk before the old file goes
    bool keepsPart = false; // a failure leaves what was written, and does not remove the file
    const char* input =
        nullptr; // an argument, which may be a text: the file that it names is not overwritten
};

// FileWriter writes a file through one wiped buffer. Until finish has returned true the file is not whole:
// a writer destroyed before that removes what it has made, unless the rules say otherwise. A replacement that
// empties the old file and then fails leaves the new one beside it, under its temporary name.
class FileWriter {
  public:
    explicit FileWriter(const char* path, const WriteRules& rules = {});
    // The second form writes to a file that is open, which no failure removes.
    explicit FileWriter(File file);
    FileWriter(const FileWriter&) = delete;
    FileWriter& operator=(const FileWriter&) = delete;
    ~FileWriter();

    bool is_open() const { return file_.is_open(); }
    bool write(const void* data, size_t size); // false once anything could not be written
    bool finish();                             // flushes and closes
    // close_failed tells, after finish, that all was written and only the closing reported a loss.
    bool close_failed() const { return closeFailed_; }

  private:
    void open_to_replace();
    bool put(const uint8_t* bytes, size_t size);
    bool flush();
    bool close();
    bool replace();
    bool copy_in_place(bool& emptied) const;
    void discard();

    const char* path_; // the caller's, which outlives the writer; null if it gave an open file
    WriteRules rules_;
    File file_;
    SecretBuffer newPath_; // of the file that will replace the one at path_; empty: written in place
    SecretBuffer buffer_;
    size_t filled_ = 0;
    bool failed_ = false, finished_ = false, closeFailed_ = false;
};

} // namespace zul
