#include <gtest/gtest.h>
#include <random>
#include <vector>

#include "ec/p256_field_x86.h"
#include "ec/p384_field_x86.h"
#include "platform/cpu.h"

#if ZUL_X86_64
namespace zul {
namespace {

template<class Field>
void halve_again(typename Field::Element& r, const typename Field::Element& a,
                 const typename Field::Element&) {
    Field::halve(r, a);
}
template<class Field>
void square_first(typename Field::Element& r, const typename Field::Element& a,
                  const typename Field::Element&) {
    Field::square(r, a);
}

// Every operation of both fields on every pair of numbers whose limbs are all zeros, ones or close to them,
// of random ones and of those given.
template<class Field, class FieldX86>
void expect_same_fields(const std::vector<typename Field::Element>& given) {
    using Element = typename Field::Element;
    using Operation = void (*)(Element&, const Element&, const Element&);
    static constexpr Operation kPortable[] = {Field::multiply, Field::add, Field::subtract,
                                              square_first<Field>, halve_again<Field>};
    static constexpr Operation kX86[] = {FieldX86::multiply, FieldX86::add, FieldX86::subtract,
                                         square_first<FieldX86>, halve_again<FieldX86>};
    if (!cpu_has(kCpuAvx2 | kCpuAdx))
        GTEST_SKIP() << "this processor does not have it";
    std::mt19937_64 random(1);
    constexpr uint64_t kLimbValues[] = {0, ~uint64_t{0}, 1, ~uint64_t{0} << 32, 0xFFFFFFFF, ~uint64_t{1}};
    std::vector<Element> elements = given;
    elements.insert(elements.end(), {Element{}, Field::kOne, Element{1}, Field::kModulus.square});
    for (uint64_t below = 1; below < 4; below++) {
        elements.push_back(Field::kPrime);
        elements.back()[0] -= below;
    }
    while (elements.size() < 240) {
        Element element;
        for (uint64_t& limb : element)
            limb = elements.size() % 4 == 0 ? random() : kLimbValues[random() % 6];
        if (limbs_below(element, Field::kPrime))
            elements.push_back(element);
    }
    for (const Element& a : elements) {
        for (const Element& b : elements) {
            for (size_t i = 0; i < std::size(kPortable); i++) {
                Element expected{}, result{}, inPlace = a;
                kPortable[i](expected, a, b);
                kX86[i](result, a, b);
                kX86[i](inPlace, inPlace, b);
                ASSERT_EQ(result, expected) << "operation " << i;
                ASSERT_EQ(inPlace, expected) << "operation " << i;
            }
        }
    }
}

} // namespace

TEST(P256FieldKernels, Agree) {
    expect_same_fields<P256Field, P256FieldX86>({});
}

// The given numbers have squares whose reduction takes p 2^384 - 7 times, or so many times but for 64 bits in
// the middle: then q (2^32 - 1) carries into a third limb in every round, which for random numbers happens
// once in 2^32 rounds. They are square roots modulo 2^384.
TEST(P384FieldKernels, Agree) {
    expect_same_fields<P384Field, P384FieldX86>({
        {0xAB685B091C98C0B5, 0x2FA605852352DC71, 0x3EF9D4B75EA1C6B2, 0xF018BAEE1A39F37D, 0xCCBC9261AF8929A6,
         0x47ADEA074FC7D92C},
        {0x5497A4F6E3673F4B, 0xD059FA7ADCAD238E, 0xC1062B48A15E394D, 0x0FE74511E5C60C82, 0x33436D9E5076D659,
         0xB85215F8B03826D3},
        {0xAB685B091C98C0B5, 0xAFA605852352DC71, 0xA072607FDC96DD80, 0xB45D77E53E513AA6, 0xD3B1BF6E66A7B529,
         0x5445490E360757B3},
    });
}

} // namespace zul
#endif
