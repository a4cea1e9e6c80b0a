// Writes the tables of base points, src/ec/p*_base*.inc: run by hand, with the folder to write to.
#include <cstdio>
#include <string>
#include <vector>

#include "ec/base_table.h"
#include "ec/edwards.h"
#include "ec/p256_field.h"
#include "ec/p384_field.h"
#include "ec/p521_field.h"

using namespace zul;

template<class Field>
static bool write(const std::string& path, const std::vector<JacobianPoint<Field>>& points) {
    FILE* out = fopen(path.c_str(), "w");
    if (out == nullptr) {
        perror(path.c_str());
        return false;
    }
    for (const JacobianPoint<Field>& point : points) {
        AffinePoint<Field> affine;
        jacobian_to_affine(affine, point);
        for (const auto* coordinate : {&affine.x, &affine.y}) {
            for (const uint64_t limb : Field::from_integer(Field::to_integer(*coordinate)))
                fprintf(out, "0x%llX,", static_cast<unsigned long long>(limb));
        }
        fputc('\n', out);
    }
    return fclose(out) == 0;
}

template<class Field>
static bool write_tables(const std::string& name) {
    std::vector<JacobianPoint<Field>> table, odd;
    JacobianPoint<Field> first = {Field::kBaseX, Field::kBaseY, Field::kOne}, twice, multiple = first;
    jacobian_double(twice, first);
    while (odd.size() < BaseOdd<Field>().size()) {
        odd.push_back(multiple);
        jacobian_add(multiple, twice);
    }
    for (size_t row = 0; row < kBaseRows<Field>; row++) {
        multiple = first;
        for (size_t i = 0; i < kBaseMultiples; i++) {
            table.push_back(multiple);
            jacobian_add(multiple, first);
        }
        for (size_t i = 0; i < kBaseWindow * kBaseStride<Field>; i++)
            jacobian_double(first, first);
    }
    return write(name + "_base.inc", table) && write(name + "_base_odd.inc", odd);
}

static void put(FILE* out, const EdwardsPoint& point) {
    using F = Field25519;
    F::Element inverse, x, y, values[3];
    F::invert(inverse, point.z);
    F::multiply(x, point.x, inverse);
    F::multiply(y, point.y, inverse);
    F::add(values[0], y, x);
    F::subtract(values[1], y, x);
    F::multiply(values[2], x, y);
    F::multiply(values[2], values[2], kEdwardsDoubleD);
    for (const F::Element& value : values) {
        for (const uint64_t limb : F::from_integer(F::to_integer(value)))
            fprintf(out, "0x%llX,", static_cast<unsigned long long>(limb));
    }
    fputc('\n', out);
}

static bool write_edwards(const std::string& name) {
    FILE* table = fopen((name + "_base.inc").c_str(), "w");
    FILE* odd = fopen((name + "_base_odd.inc").c_str(), "w");
    if (table == nullptr || odd == nullptr) {
        perror(name.c_str());
        return false;
    }
    EdwardsPoint first = edwards_base(), twice, multiple = first;
    EdwardsAddend addend;
    edwards_double(twice, first);
    edwards_addend(addend, twice);
    for (size_t i = 0; i < EdwardsBaseOdd().size(); i++) {
        put(odd, multiple);
        edwards_add(multiple, multiple, addend);
    }
    for (size_t row = 0; row < EdwardsBaseTable().size(); row++) {
        multiple = first;
        edwards_addend(addend, first);
        for (size_t i = 0; i < kEdwardsMultiples; i++) {
            put(table, multiple);
            edwards_add(multiple, multiple, addend);
        }
        for (size_t i = 0; i < kEdwardsWindow * kEdwardsStride; i++)
            edwards_double(first, first);
    }
    const bool isWritten = fclose(table) == 0;
    return fclose(odd) == 0 && isWritten;
}

int main(int argc, char** argv) {
    if (argc != 2) {
        fputs("usage: ec_tables FOLDER\n", stderr);
        return 2;
    }
    const std::string folder = std::string(argv[1]) + "/";
    return write_tables<P256Field>(folder + "p256") && write_tables<P384Field>(folder + "p384") &&
                   write_tables<P521Field>(folder + "p521") && write_edwards(folder + "edwards")
               ? 0
               : 1;
}
