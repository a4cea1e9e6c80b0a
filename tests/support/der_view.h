#pragma once
#include "asn1/der_reader.h"
#include "support/der_bytes.h"
#include "support/unit_test.h"

namespace test {

inline zul::DerView view(const Bytes& bytes) {
    return {bytes.data(), bytes.size()};
}
inline zul::DerView view(const std::string& bytes) {
    return {bytes.data(), bytes.size()};
}

} // namespace test
