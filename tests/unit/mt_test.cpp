#include "bignum/mt.h"
#include "frame/memory_hooks.h"
#include "support/death.h"
#include "support/unit_test.h"

using namespace zul;

namespace {

// Number is a BigInt that is read from and written as hex.
class Number : public BigInt {
  public:
    explicit Number(const std::string& hex) {
        const std::vector<uint8_t> bytes = test::from_hex(hex);
        mtConvFromOctets(*this, bytes.data(), bytes.size());
    }
    MtNumber* operator->() const { return *this; }

    std::string hex() const {
        std::vector<uint8_t> bytes(mtConvToOctets(*this, nullptr, 5));
        mtConvToOctets(*this, bytes.data(), bytes.size());
        // The digits that make up no value are zero, whatever was there before.
        const MtNumber* b = *this;
        EXPECT_EQ(mpSizeof(b->digits, b->maxdigits), mpSizeof(b->digits, b->ndigits));
        return test::to_hex(bytes);
    }
};

const std::string kOnes64(16, 'f'), kOnes1024(256, 'f');

} // namespace

TEST(MtObject, ResizesToExactlyWhatIsAskedAndWipesWhatItLeaves) {
    static size_t freed, length, dirty;
    freed = dirty = 0;
    length = 3 * sizeof(DIGIT_T);
    const Number whole("deadbeef5ec2e75edeadbeef"), cut("5ec2e75edeadbeef");
    MT b = mtNew();
    mtSetEqual(b, whole);
    memory_set_hooks({nullptr, [](void* block) {
                          freed++;
                          dirty += !test::is_zero(block, length);
                      }});
    mt_resize(b, 3);
    EXPECT_EQ(freed, 0u);
    mt_resize(b, 7);
    EXPECT_EQ(freed, 1u);
    EXPECT_EQ(b->maxdigits, 7u);
    EXPECT_EQ(b->ndigits, 3u);
    EXPECT_EQ(mtIsEqual(b, whole), 1);
    mt_resize(b, 2);
    EXPECT_EQ(mtIsEqual(b, cut), 1);
    EXPECT_EQ(b->maxdigits, 7u);
    b->digits[5] = 0x5EC2E75E; // the whole capacity is wiped in the end
    length = sizeof(MtNumber);
    mtFree(&b);
    memory_set_hooks({});
    EXPECT_EQ(freed, 3u);
    EXPECT_EQ(dirty, 0u);
    MT none = nullptr;
    mtFree(&none);
}

TEST(MtObject, ConvertsAndCompares) {
    Number b("0000000000123456789abc");
    EXPECT_EQ(b->ndigits, 2u);
    EXPECT_EQ(b->maxdigits, 3u);
    uint8_t out[8];
    EXPECT_EQ(mtConvToOctets(b, out, 8), 6u);
    EXPECT_EQ(test::to_hex(out, 8), "0000123456789abc");
    EXPECT_EQ(mtConvToOctets(b, out, 2), 6u);
    EXPECT_EQ(test::to_hex(out, 2), "9abc");
    EXPECT_EQ(mtConvFromOctets(b, out, 0), 0u);
    EXPECT_EQ(b.hex(), "00"); // zero has a byte
    EXPECT_EQ(mtIsZero(b), -1);

    // Leading zero digits change no comparison.
    Number long32("0100000000"), short32("ffffffff"), zero("");
    EXPECT_EQ(mtShortSub(long32, long32, 1), 0u);
    EXPECT_EQ(long32->ndigits, 2u);
    EXPECT_EQ(mtCompare(long32, short32), 0);
    EXPECT_EQ(mtShortCmp(long32, kMaxDigit), 0);
    mtDecrement(short32);
    EXPECT_EQ(mtCompare(long32, short32), 1);
    EXPECT_EQ(mtCompare(Number("0100000000"), long32), 1);
    EXPECT_EQ(mtIsEqual(long32, short32), 0);
    mtShortSub(b, zero, 0);
    EXPECT_EQ(b->ndigits, 1u);
    EXPECT_EQ(mtIsEqual(b, zero), 1);
}

TEST(MtArithmetic, WidensOperandsAndKeepsTheirValues) {
    Number u("07"), v(kOnes1024), w(kOnes1024 + kOnes1024 + "ff");
    mtMultiply(w, u, v);
    EXPECT_EQ(w.hex(), "06" + kOnes1024.substr(2) + "f9");
    EXPECT_EQ(w->ndigits, 33u);
    EXPECT_EQ(u.hex(), "07");
    EXPECT_EQ(u->ndigits, 1u);
    EXPECT_GE(u->maxdigits, 32u);

    Number one("01"), x(kOnes64), y(kOnes64);
    EXPECT_EQ(mtAdd(x, x, one), 1u); // a single digit: the short form
    EXPECT_EQ(x.hex(), "010000000000000000");
    EXPECT_EQ(mtSubtract(x, x, one), 0u);
    EXPECT_EQ(x.hex(), kOnes64);
    EXPECT_EQ(x->ndigits, 3u);
    EXPECT_EQ(mtAdd(y, one, x), 0u); // three digits, the top one zero: nothing is carried out of them
    EXPECT_EQ(y.hex(), "010000000000000000");
    EXPECT_EQ(mtSubtract(y, x, y), 1u);
    EXPECT_EQ(y.hex(), "ffffffffffffffffffffffff");
    mtSetShort(y, 16);
    mtMultiply(x, x, y);
    EXPECT_EQ(x.hex(), "0ffffffffffffffff0");
    EXPECT_EQ(mtShortMod(y, x, 1000), 840u);
    EXPECT_EQ(y.hex(), "0348");
    mtShiftRight(y, x, 36);
    EXPECT_EQ(y.hex(), "ffffffff");
    EXPECT_EQ(mtShortAdd(y, one, kMaxDigit), 1u);
    EXPECT_EQ(y->ndigits, 2u);
    mtSetBit(y, 32, 0);
    EXPECT_EQ(y->ndigits, 0u);
    mtSetBit(y, 71, 1);
    mtSetEqual(x, y);
    EXPECT_EQ(x.hex(), "800000000000000000");
}

TEST(MtArithmetic, ResultsMayBeOperands) {
    const std::string a = "0102030405060708090a0b0c0d0e0f10", m = "f000000000000000000000000000000d",
                      e = "010001";
    // Each function of up to three operands, with its result in a fourth number and in each operand in turn.
    using Function = void (*)(MT, MT, MT, MT);
    const Function functions[] = {
        [](MT w, MT u, MT, MT v) { mtAdd(w, u, v); },
        [](MT w, MT u, MT, MT v) { mtSubtract(w, v, u); },
        [](MT w, MT u, MT, MT v) { mtMultiply(w, u, v); },
        [](MT w, MT u, MT, MT v) { mtModulo(w, v, u); },
        [](MT w, MT u, MT x, MT v) { mtModMult(w, u, x, v); },
        [](MT w, MT u, MT x, MT v) { mtModExp(w, u, x, v); },
        [](MT w, MT u, MT, MT v) { static_cast<void>(mtModInv(w, u, v)); },
        [](MT w, MT u, MT, MT v) { mtGcd(w, u, v); },
    };
    for (const Function f : functions) {
        Number result("ff"), u0(a), x0(e), v0(m);
        f(result, u0, x0, v0);
        EXPECT_EQ(u0.hex() + x0.hex() + v0.hex(), a + e + m);
        for (const int place : {0, 1, 2}) {
            Number u(a), x(e), v(m);
            Number& w = place == 0 ? u : place == 1 ? x : v;
            f(w, u, x, v);
            EXPECT_EQ(w.hex(), result.hex()) << &f - functions << " " << place;
        }
    }
    Number square(kOnes64);
    mtMultiply(square, square, square);
    EXPECT_EQ(square.hex(), "fffffffffffffffe0000000000000001");
}

TEST(MtArithmetic, NumbersWithoutDigitsAreOperands) {
    Number zero(""), y("ffffffffff"), x("0900000007"), six("06"), four("04");
    mtModExp(y, zero, zero, zero);
    EXPECT_EQ(y.hex(), "01");
    EXPECT_EQ(mtModInv(y, four, six), 1);
    EXPECT_EQ(y->ndigits, 0u);
    EXPECT_EQ(mtModInv(y, zero, zero), 1);
    mtGcd(y, zero, six);
    EXPECT_EQ(y.hex(), "06");
    mtModulo(y, x, zero);
    EXPECT_EQ(y->ndigits, 0u);
    mtMultiply(y, zero, x);
    EXPECT_EQ(y->ndigits, 0u);
    EXPECT_EQ(mtAdd(y, zero, zero), 0u);
    EXPECT_EQ(y->ndigits, 0u);
    EXPECT_EQ(mtRabinMiller(zero, 3), 0);
}

TEST(MtRandom, FillsWholeDigitsAndCutsTheTop) {
    static size_t asked;
    const MtFill fill = [](uint8_t* out, size_t length, const uint8_t* seed, size_t seedLength) {
        EXPECT_EQ(std::string(reinterpret_cast<const char*>(seed), seedLength), "seed");
        asked = length;
        memset(out, 0xFF, length);
        return length == 20 ? 29 : 0;
    };
    const struct {
        size_t bits, asked;
        int code;
    } cases[] = {{1, 4, 0}, {31, 4, 0}, {32, 4, 0}, {33, 8, 0}, {96, 12, 0}, {0, 0, 0}, {130, 20, 29}};
    for (const auto& c : cases) {
        Number b(kOnes1024);
        EXPECT_EQ(mtRandomBits(b, c.bits, reinterpret_cast<const uint8_t*>("seed"), 4, fill), c.code);
        EXPECT_EQ(asked, c.asked);
        EXPECT_EQ(mtBitLength(b), c.code == 0 ? c.bits : 0);
        EXPECT_EQ(b->ndigits, c.code == 0 ? c.asked / 4 : 0);
    }
}

TEST(MtPrint, WritesEightDigitsALineAndOneOfZero) {
    Number padded("0100000000"), zero(""), lines(std::string(8 * 8, '1') + "22222222");
    mtDecrement(padded);
    testing::internal::CaptureStdout();
    for (const MT number : {MT(padded), MT(zero), MT(lines)})
        for (const int flags : {0, 1, 2, 3})
            mtPrint(number, flags);
    std::string row;
    for (int i = 0; i < 8; i++)
        row += "11111111 ";
    const std::string plain = row + "22222222 ", broken = row + "\n22222222 \n";
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "00000000 ffffffff 00000000 ffffffff \nffffffff ffffffff \n"
              "00000000 00000000 \n00000000 00000000 \n" +
                  plain + broken + plain + broken);
}

TEST(BignumDeathTest, EndsTheProcessWithoutMemory) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const MemoryHooks none{[](size_t) { return true; }, nullptr};
    Number b("01");
    EXPECT_REPORTED_END((memory_set_hooks(none), mpAlloc(4)), "Multon Error");
    EXPECT_REPORTED_END(mpAlloc(SIZE_MAX / 2), "mpAlloc: Unable to allocate memory\\.");
    EXPECT_REPORTED_END((memory_set_hooks(none), mtNew()), "mtNew: Failed to calloc memory\\.");
    EXPECT_REPORTED_END((memory_set_hooks(none), mt_resize(b, 2)), "mt_resize: Failed to realloc memory\\.");
}
