#include <openssl/crypto.h>
#include <openssl/evp.h>
#include <string>
#include <vector>

#include "bench_pair.h"
#include "bench_sizes.h"
#include "zulcore.h"

namespace {

constexpr size_t kLargest = 1 << 20;
std::vector<unsigned char> bytes(kLargest), decoded(kLargest + 3);
std::vector<char> encoded(2 * kLargest + 2);

void add_rows(const BenchSize& size) {
    const int n = size.bytes;
    const std::string hex = [n] {
        std::vector<char> text(static_cast<size_t>(2 * n + 1));
        CNV_HexStrFromBytes(text.data(), 2 * n, bytes.data(), n);
        return std::string(text.data());
    }();
    const std::string base64 = [n] {
        std::vector<char> text(static_cast<size_t>(2 * n + 4));
        CNV_B64StrFromBytes(text.data(), 2 * n + 3, bytes.data(), n);
        return std::string(text.data());
    }();
    const size_t rate = static_cast<size_t>(n);
    bench_register({"hex encode" + size.suffix, rate,
                    [n] { CNV_HexStrFromBytes(encoded.data(), 2 * n, bytes.data(), n); },
                    [n] {
                        size_t length = 0;
                        OPENSSL_buf2hexstr_ex(encoded.data(), encoded.size(), &length, bytes.data(),
                                              static_cast<size_t>(n), '\0');
                    }});
    bench_register({"hex decode" + size.suffix, rate,
                    [n, hex] { CNV_BytesFromHexStr(decoded.data(), n, hex.c_str()); },
                    [hex] {
                        size_t length = 0;
                        OPENSSL_hexstr2buf_ex(decoded.data(), decoded.size(), &length, hex.c_str(), '\0');
                    }});
    bench_register(
        {"base64 encode" + size.suffix, rate,
         [n] { CNV_B64StrFromBytes(encoded.data(), 2 * n, bytes.data(), n); },
         [n] { EVP_EncodeBlock(reinterpret_cast<unsigned char*>(encoded.data()), bytes.data(), n); }});
    bench_register({"base64 decode" + size.suffix, rate,
                    [n, base64] { CNV_BytesFromB64Str(decoded.data(), n, base64.c_str()); },
                    [base64] {
                        EVP_DecodeBlock(decoded.data(), reinterpret_cast<const unsigned char*>(base64.data()),
                                        static_cast<int>(base64.size()));
                    }});
}

} // namespace

BENCH_ROWS {
    for (size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<unsigned char>(i * 167 + (i >> 8));
    for (const BenchSize& size : bench_sizes)
        add_rows(size);
}
