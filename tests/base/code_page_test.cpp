#include "base/code_page.h"

#include <gtest/gtest.h>

#include <set>

namespace tidvane::base {
namespace {

constexpr int allPages[] = {874, 1250, 1251, 1252, 1253, 1254, 1255, 1256, 1257, 1258};

TEST(CodePage, EveryByteComesBack) {
    for (const int number : allPages) {
        const CodePage page(number);
        EXPECT_EQ(page.number(), number);
        std::set<std::string> characters;
        for (int byte = 0; byte < 256; ++byte) {
            const std::string bytes(1, static_cast<char>(byte));
            const std::string text = page.toUtf8(bytes);
            EXPECT_EQ(page.fromUtf8(text), bytes) << number << " " << byte;
            EXPECT_EQ(page.encodedLength(text), 1U) << number << " " << byte;
            characters.insert(text);
        }
        EXPECT_EQ(characters.size(), 256U) << number;
    }
}

TEST(CodePage, KnowsTheCharactersOfEachPage) {
    EXPECT_EQ(CodePage(1252).toUtf8("\x80\xE4\xDF\x9F"), "\xE2\x82\xAC\xC3\xA4\xC3\x9F\xC5\xB8");
    EXPECT_EQ(CodePage(1250).toUtf8("\xB3\x9A"), "\xC5\x82\xC5\xA1");
    EXPECT_EQ(CodePage(1251).toUtf8("\xC0\xFF"), "\xD0\x90\xD1\x8F");
    EXPECT_EQ(CodePage(1253).toUtf8("\xE1"), "\xCE\xB1");
    EXPECT_EQ(CodePage(1254).toUtf8("\xFE\xFD"), "\xC5\x9F\xC4\xB1");
    EXPECT_EQ(CodePage(1255).toUtf8("\xE0"), "\xD7\x90");
    EXPECT_EQ(CodePage(1256).toUtf8("\xC7"), "\xD8\xA7");
    EXPECT_EQ(CodePage(1257).toUtf8("\xE0"), "\xC4\x85");
    EXPECT_EQ(CodePage(1258).toUtf8("\xFE"), "\xE2\x82\xAB");
    EXPECT_EQ(CodePage(874).toUtf8("\xA1"), "\xE0\xB8\x81");
}

TEST(CodePage, OpenBytesBecomeControlCharacters) {
    EXPECT_EQ(CodePage(1252).toUtf8("\x81\x9D"), "\xC2\x81\xC2\x9D");
    EXPECT_EQ(CodePage(1253).toUtf8("\xAA"), "\xEF\xA3\xB9");  // private use, as Windows has it
}

TEST(CodePage, MissingCharactersBecomeQuestionMarks) {
    const CodePage page(1252);
    EXPECT_EQ(page.fromUtf8("a\xD0\x90z"), "a?z");
    EXPECT_EQ(page.fromUtf8("\xF0\x9F\x98\x80"), "?");
    EXPECT_EQ(page.encodedLength("a\xD0\x90z\xF0\x9F\x98\x80"), 4U);
}

TEST(CodePage, BytesThatAreNoUtf8StayAsTheyAre) {
    const CodePage page(1252);
    EXPECT_EQ(page.fromUtf8("x\xE4\xFFy\xC3"), "x\xE4\xFFy\xC3");
    EXPECT_EQ(page.encodedLength("x\xE4\xFFy\xC3"), 5U);
}

TEST(CodePage, UnknownNumbersBehaveAs1252) {
    EXPECT_EQ(CodePage(932).number(), 1252);
    EXPECT_EQ(CodePage(0).toUtf8("\x80"), "\xE2\x82\xAC");
}

}  // namespace
}  // namespace tidvane::base
