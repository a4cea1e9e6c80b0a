#include <sstream>

#include "rsa/xml_reader.h"
#include "support/unit_test.h"

using namespace zul;

namespace {

// The events as a text: "(name" a start, "[x]" its attribute "k", ")" an end, pieces of text, "." the sound
// end and "!" a malformed one.
std::string events(const std::string& document) {
    XmlReader xml(document);
    std::string all;
    for (;;) {
        switch (xml.next()) {
        case XmlReader::Event::start:
            all += '(' + std::string(xml.name());
            if (const auto value = xml.attribute("k"); !value.empty())
                all += '[' + std::string(value) + ']';
            break;
        case XmlReader::Event::end:
            all += ')';
            break;
        case XmlReader::Event::text:
            all += xml.text();
            break;
        case XmlReader::Event::finished:
            EXPECT_EQ(xml.next(), XmlReader::Event::finished);
            return all + '.';
        case XmlReader::Event::malformed:
            EXPECT_EQ(xml.next(), XmlReader::Event::malformed);
            return all + '!';
        }
    }
}

std::string nested(size_t depth) {
    std::string opening, closing;
    for (size_t i = 0; i < depth; i++) {
        opening += "<a>";
        closing += "</a>";
    }
    return opening + closing;
}

} // namespace

TEST(XmlReader, Steps) {
    const struct {
        const char *document, *events;
    } cases[] = {
        {"<a/>", "(a)."},
        {" \r\n<a >x</a\t> \n", "(ax)."},
        {"\xEF\xBB\xBF<?xml version=\"1.0\" encoding='UTF-8'?>\n<!-- c --><a>x</a><!----><?pi?>", "(ax)."},
        {"<a><b>1</b> <c/>2</a>", "(a(b1) (c)2)."},
        {"<a>1<!-- <b> & -->2<?p >?>3</a>", "(a123)."},
        {"<p:a xmlns:p=\"u\"><p:b/></p:a>", "(a(b))."},
        {"<a>&lt;&gt;&amp;&quot;&apos;&#65;&#x42;&#x0043;</a>", "(a<>&\"'ABC)."},
        {"<a>&#xea;&#x20AC;&#x10FFFF;</a>", "(a\xC3\xAA\xE2\x82\xAC\xF4\x8F\xBF\xBF)."},
        {"<a><![CDATA[<b>&]]]></a>", "(a<b>&])."},
        {"<a j=\"'k='\" k = \"'>/\" i=''><b/></a>", "(a['>/](b))."},
        {"<a kk='w' p:k='v'/>", "(a[v])."},
        {"<a.1-_:\xC3\xA9/>", "(\xC3\xA9)."},
    };
    for (const auto& c : cases)
        EXPECT_EQ(events(c.document), c.events) << c.document;
}

TEST(XmlReader, RefusesWhatIsMalformed) {
    std::istringstream documents(
        " ~x~x<a/>~<a/>x~<a/><a/>~<a/></a>~<a>~<a~<a/~<a / >~<a></b>~<p:a></a>~<a><b></a></b>~"
        "< a/>~<1/>~<>~</a>~<a k/>~<a k=v/>~<a k='v/>~<a k='v\"/>~<a k='<'/>~<a k='v'l='w'/>~"
        "<a>&x;</a>~<a>&</a>~<a>&;</a>~<a>&lt</a>~<a>&#;</a>~<a>&#0;</a>~<a>&#x110000;</a>~"
        "<a>&#4294967361;</a>~<a>&#6A;</a>~<a><!-- </a>~<a><?p </a>~<a><![CDATA[ </a>~"
        "<![CDATA[x]]><a/>~<!DOCTYPE a><a/>~<!DOCTYPE a [<!ENTITY x 'y'>]><a>&x;</a>");
    for (std::string document; std::getline(documents, document, '~');)
        EXPECT_EQ(events(document).back(), '!') << document;
    EXPECT_EQ(events(""), "!");
}

TEST(XmlReader, BoundsNesting) {
    EXPECT_EQ(events(nested(XmlReader::kMaxDepth)).back(), '.');
    EXPECT_EQ(events(nested(XmlReader::kMaxDepth + 1)).back(), '!');
    EXPECT_EQ(events(nested(1000000)).back(), '!');
}
