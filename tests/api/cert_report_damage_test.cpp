#include "der/der_tree.h"
#include "support/module_calls.h"

// What is wrong in the value of an extension is to be seen in its report.

namespace {

const std::string kStranger = "\xC5\x03\xA1\xB2\xC3"; // no standard has such an element

std::string hex_of(const std::string& bytes) {
    return test::to_hex(test::Bytes(bytes.begin(), bytes.end()));
}

class Damage {
  public:
    explicit Damage(const std::string& object) { fuzz::der_tree_read(tree_, object); }

    // each damages the elements of extension values one after the other.
    void each() { visit(tree_, false); }
    int count() const { return count_; }

  private:
    void visit(fuzz::DerTree& elements, bool isInside) {
        for (fuzz::DerNode& element : elements) {
            if (isInside && !element.is_raw())
                damage(element);
            const bool isValue =
                &element == &elements.back() && elements.front().is(0x06) && element.is(0x04);
            if (element.hasChildren)
                visit(element.children, isInside || isValue);
        }
    }

    void damage(fuzz::DerNode& element) {
        const fuzz::DerNode whole = element;
        if (element.hasChildren && !element.is(0x04)) {
            element.children.emplace_back().value = kStranger;
            expect_shown(kStranger, "one element more");
            element = whole;
        }
        element.identifier[0] = static_cast<char>(element.identifier[0] | 0xC0);
        expect_shown(fuzz::der_tree_write({element}), "another type");
        element = whole;
    }

    void expect_shown(const std::string& stranger, const char* what) {
        count_++;
        const std::string object = fuzz::der_tree_write(tree_);
        const std::string text = test::pem(test::Bytes(object.begin(), object.end()));
        const std::string report = test::text_of(
            [&](char* out, int room) { return CERT_Report(out, room, text.c_str(), ZUL_CERT_JSON); });
        EXPECT_NE(report.find(hex_of(stranger)), std::string::npos) << what << ": " << hex_of(stranger);
    }

    fuzz::DerTree tree_;
    int count_ = 0;
};

} // namespace

TEST(CertReport, ShowsDamagedExtensions) {
    int count = 0;
    for (const test::Vector& block : test::read_vectors("cert_report/reports.txt")) {
        SCOPED_TRACE(block.text("Name"));
        const test::Bytes object = test::from_base64(block.text("Object"));
        Damage damage(std::string(object.begin(), object.end()));
        damage.each();
        count += damage.count();
        block.text("Lines");
    }
    EXPECT_GT(count, 400);
}
