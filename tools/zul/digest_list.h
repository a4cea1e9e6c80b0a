#pragma once
#include <string>
#include <vector>

#include "algorithms.h"
#include "secret_bytes.h"

// Lists of digests, a line for each file, as `zul hash`, sha256sum and the like write them.
namespace tool {

// DigestLine is a line "HEX  NAME", "HEX *NAME" or "ALG (NAME) = HEX".
struct DigestLine {
    std::string tag, hex, name; // tag: ALG, or empty

    // read takes a line without its end. False if it is none of the three.
    bool read(std::string_view line);
};

// ListedDigest is a line with the algorithm that it is of.
struct ListedDigest {
    std::string file, hex; // hex in lower case
    const Digest* digest;
};

struct DigestList {
    std::vector<ListedDigest> digests;
    std::vector<int> badLines; // numbers of lines that hold no digest

    // Without an algorithm the tags tell it, or else the lengths: MD5, SHA-1 and SHA-2.
    DigestList(const SecretBytes& content, const Digest* digest);
};

} // namespace tool
