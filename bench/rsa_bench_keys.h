// The primes of the benchmark's keys, made by OpenSSL; e is 65537. They protect nothing.
#pragma once
#include <cstdlib>
#include <string>
#include <vector>

#include "encode/hex.h"
#include "rsa/rsa_key_string.h"

struct BenchPrimes {
    int bits;
    const char *p, *q;
};

// clang-format off
constexpr BenchPrimes kBenchPrimes[] = {
    {1024,
     "fb425ee9f46f010d826493dc2b901710db2e8f78069755a22fc85f57bb32c897dc00d573e7d8c92c34373105b3a19a883e24"
     "390ae3ef75be790fa42689a858fd",
     "e33f7e673808ff47fa38edd1fa4ed56ba19e9898c615eb7d72970c58c02fc4401cb3a960f3177154d41aeb0a4be24dd1eec2"
     "0136db6711691e6c68a586aeec65"},
    {2048,
     "b831082d053e2a6ff99b9849d363b21b0b91c214a328ecf67364b7bad8b4173bb6a09b2dc5eb577e5be7ab421304625496e5"
     "15eeed01f4972914212f36249fcca2e6fdb3083feacb329cda52d9127a9a88dcac5f1f64a9b605dc8a77e7514ebba7fc380f"
     "3382db8622c08e2700c93722c803ce46a494f5b9f485a223eba6d179",
     "b613521003e6082e527ca2351c7d6e705c363596cdc7362bd7c0fc87a30f65459794d209635524477bc7e34c19f083f68b36"
     "75f39b9ef866e021ce96a4f2addffd2b05678381cd9c56ab27f0c4387802afe28e745a33aecae98da1640608e08732ca9632"
     "38c7ef951d87b21265a9116ac74733efcbf9255cd4c0ddce1c42d35d"},
    {3072,
     "bf5f1ce1308f64d989ef76d780cd88e52c85c362b4a393f70d397adf9aa3d4ec6b8b3dc790209ab228d54d17cad125a70941"
     "9898c92c04fe196d12388d7a63a31a7332dd33ecf1b60a4def4e47c3ac4b2d7912dd19260cb2161864644ce63ae616842b0a"
     "18f9b459ff1d9e14884d947454168fc9ca7716057d7d0faab092cb774c0a4b4070aba04617cdef57dee3fd5e8440c49c6da4"
     "0a4451cdcad92891717a98ed252de6db2b8aba2584d7d7ffd30effc1cda2e3627cf44a15ad13bbd08a1f",
     "bd6f069a0d796bad6d1dcf470af86374e535cc32d23a7b9d951f2abbb37f95295f7b4dc450b3f39f1c56300e2142b5c1dde8"
     "4461fd3baf784e7c2e3f2d9266673dba7775295532fd4d6c5477a270c21063cf193d7ea359f4cfadeca1aa975d0f396646e0"
     "072c7b034281dc74899f315e95dbb44081e9f8f0b6fd43d236eb4dad48fc592468a342679dfddd714554df65a42e6490c12b"
     "0e364b8f5be6c83055de725e6f015244da574efc8891fa1af558ca27e38a2657c21d52c321311f9fa841"},
    {4096,
     "f1870a50647ceef489ceca538b63aee63571fc1ae26fbefb556ed7862e31a5fabf31e81a38c1c05c6f634f62ec20b049d255"
     "2d2d31df6f1fd9369e1b2a7a0116ac17ba2e38f4fa145758bd3239a071e80d669183fa2170c44eff9c3d408cbd1ae1600e43"
     "3e3ecf8c16cb4f2a38c8fc97abb39899e79ea85e62a3c85794fbc779a0b59298011a7a9e62509b2cc4662c7ff6c37170dfa1"
     "a14331cee810ec1f11a52837878d1f698e228b6865a795500727f71564070c5c6227ac8e4ba8e158579869b34377ecef3fcb"
     "c78ac52932585135961e3f754834e31cc8e2eb78e5e8d5c517489b90ec789ef9e4869fc558e8f969a1d7d2688b178dc973f0"
     "38708b03c621",
     "c082f757449db208ae24c02c27805275613350c373727c180f041bf145ca29701905347af0cc39ed212a9d481b7b09bffda6"
     "8c8c0278cb83aa5293141d1ab87db0435595b815a6438a8b1b0e4a1993e61e23576d2055db6ad3002769a1dcb75e91d13fb0"
     "b7280f9dbf7c29f963eff2bcf36be0d0217d396ed259178a5a34d1eb7a19f223789bc060010bbd536cdd4d603323fa2d5808"
     "88340edc6d817fdf23ad90336b8ded4a71db42c0542ec9f1ea1b2ad3be223c5f47c829dcc650b7700e7318ab3a377a9e6ce3"
     "37b4ea947854353d0df143269b1e0c564d604e3faac715180562d536e75896ff9e13576f09b0e433a020d16f427af5e81002"
     "3dea870214e7"},
    {8192,
     "f178a27cf0fc52b2b33fae5ef94ce1fda74ff0c71659de079f7a7c39c84ed3730c3bcd4bda7256a0de0e32f36653837e298f"
     "ffe1f8a9acc407f355ba7a420eb1ee59a7d89e2dc30cb34da99be8b5bc98068583475e0de9a477d08c186109de06505f3a30"
     "4011a88c1b1a178afe5db7035c11a6456229ac4490b326db5f6bad1834597be30be923f816aa3a6677f118e8a2df037b1eb7"
     "7dae403413297ee7545c62bbe50708924359187d63cf9548a5ebeef9cb5b88faee4b2176f6a7e6e3b5765ec2e404193ce2af"
     "8cf8ebc65a64fcec45b95b0373249cd07f331d8f49c10da5227109586f673fe2e03e19b44e4ca17b986599fc95394a63a2da"
     "58a72ed4ca47b5453760b45a72301815da36a6749c6222ed48c498408a930f4c89e72ddaaffd8f9fb0b5a5ede99b250f6710"
     "fbaec50e9a04fa8f7a7607236b802cbdb87ff7e062019fc63478c0989ecf8f4b81294b088a45280e10bb35ad7ab387089c45"
     "4c48c0eb2a4be9a9d56597a5aecac312d3af4db39c68b4063a064239a45b3d37f1ee28e90def4ff558e25048bfc1edc291be"
     "ce405851a98183196cc3ab1377aa8c19b10789d316c547419715d27dd29e400d73ee32428307e422ee1a392457e64d496129"
     "4fcb018dac88544ab5cdac3a439a427168bb1a788abaaf683970255ac1805f2c85d03e14da66c10dc50df62fba00d3c75d92"
     "afc106121c251da2e9178b0f",
     "e13be04fdbb2a2806136656d4ddecbf9e2d3020e1e8ed2af5c06de27ca6426493f0b04be2ee0bdfe7464fba537d8191dd40a"
     "48d7c4adace569390e3d9978b207cb1a3b38fb688ddff731a5eb0d44e4e698cda1f94298944d7a95f7a807b4bc02d702b68f"
     "d2fcdfff080c2b9fced01a0c1e8174200eab6125f863c033ecb41eb51b69037d242ed88b38f3d4571979c2bcc52770354c2a"
     "a8670b4912968ae848add6e45c83e6c3d8a5d91fe42f7adaacddbae823457607f0dab9a5cecdc89ce23b78b64eaf7c64dfb7"
     "94ae716ca8ffbc886e332309247075db955fae0c7edeae6f88f229121ec799604cfb57c1d972c5a90f7580532f36b2cd6cea"
     "e09cce4fe71ff9818b9ba17448f5c074c70744ea944913e2ba86b9fef9376f6dada8d88c958bea7473f7b723241ab23d808b"
     "40376fed7c8e0096ee93a4cfcb50707e2f01203a0c683751eca71bd0094603cb0d5d6b3b39fde043b6deb6a76558aa04da7d"
     "94c68fe773ef1cc8687af8c5b98ec6e8b7b054b1cb296134f42143b29e93e71fc190840e3581c3132b62287dc4f34596a1b8"
     "cf76a1daf6dbc525260ecfb532c4401cb321272ac3f7db4ebb32a6b688ab9e4a278d1945a15d51e81010ee32b5c3d9780646"
     "c2f0ff2396260ec56300dc35df929c8840d41918f43a84300652d05b37c3eaf42d53c3d52d6ccb09205a2a5aa6360206382a"
     "0c59e3b50ba8ae9a019fd15b"},
};
// clang-format on

constexpr unsigned kBenchExponent = 65537;

inline void bench_read_hex(zul::MT number, const char* hex) {
    std::vector<unsigned char> bytes(zul::hex_decoded_length(hex));
    zul::hex_decode(bytes.data(), bytes.size(), hex);
    zul::mtConvFromOctets(number, bytes.data(), bytes.size());
}

inline void bench_fill_key(zul::RsaKey& key, const BenchPrimes& primes) {
    bench_read_hex(key.p, primes.p);
    bench_read_hex(key.q, primes.q);
    zul::BigInt phi, p1, q1;
    zul::mtShortSub(p1, key.p, 1);
    zul::mtShortSub(q1, key.q, 1);
    zul::mtMultiply(phi, p1, q1);
    zul::mtMultiply(key.n, key.p, key.q);
    zul::mtSetShort(key.e, kBenchExponent);
    if (zul::mtModInv(key.d, key.e, phi) != 0 || zul::mtModInv(key.qInv, key.q, key.p) != 0)
        std::abort();
    zul::mtModulo(key.dP, key.d, p1);
    zul::mtModulo(key.dQ, key.d, q1);
    key.bits = zul::mtBitLength(key.n);
    key.flags = zul::kRsaPublic | zul::kRsaPrivate | zul::kRsaCrt;
}

using BenchKeyWriter = int (*)(char* out, int outChars, const zul::RsaKey& key, int* length);

inline std::string bench_key_string(const zul::RsaKey& key,
                                    BenchKeyWriter write = zul::rsa_private_key_string) {
    int length = 0;
    if (write(nullptr, 0, key, &length) != 0)
        std::abort();
    std::string text(static_cast<size_t>(length), '\0');
    if (write(text.data(), length, key, &length) != 0)
        std::abort();
    return text;
}
