#include "registry/modReg.h"

#include "registry_fixture.h"

namespace tidvane::registry {
namespace {

using namespace std::string_literals;

class ReadString : public RegistryFixture {
protected:
    std::optional<std::string> read(const std::string& name) {
        return ReadRegString(services, HKEY_CURRENT_USER_, "A", name);
    }
};

TEST_F(ReadString, ReadsATextUpToItsFirstNul) {
    const auto k = make("A");
    k->setText("n", "text");
    k->setText("", "default");
    k->setText("inner", "one\0two"s);
    k->setText("umlaut", "\xC3\xA4");
    EXPECT_EQ(read("N"), "text");
    EXPECT_EQ(read(""), "default");
    EXPECT_EQ(read("inner"), "one");
    EXPECT_EQ(read("umlaut"), "\xC3\xA4");
}

TEST_F(ReadString, TakesAllOfATextWithoutANul) {
    make("A")->set("n", platform::kRegSz, "a\0b\0"s);
    EXPECT_EQ(read("n"), "ab");
}

TEST_F(ReadString, AnythingElseIsEmpty) {
    EXPECT_EQ(read("n"), std::nullopt);
    const auto k = make("A");
    k->setText("expand", "%A%", platform::kRegExpandSz);
    k->setText("multi", "a", platform::kRegMultiSz);
    k->set("dword", platform::kRegDword, "1234");
    k->setText("empty", "");
    for (const char* name : {"missing", "expand", "multi", "dword"}) EXPECT_EQ(read(name), std::nullopt) << name;
    EXPECT_EQ(read("empty"), "");
}

}  // namespace
}  // namespace tidvane::registry
