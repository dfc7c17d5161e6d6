#include "platform/common/script_host_on_registry.h"

#include <gtest/gtest.h>

#include "platform/common/registry_in_tree.h"

namespace tidvane::platform {
namespace {

class ScriptHostOnRegistryTest : public testing::Test {
protected:
    std::string text(const std::string& path, const std::string& name) {
        const RegistryKeyPtr key = tree.find("User\\S-1-5-21-0-0-0-1000\\" + path);
        const RegistryValue* const value = key ? key->findValue(name) : nullptr;
        return value == nullptr ? "(none)" : std::to_string(value->type) + ":" + value->data;
    }

    RegistryTree tree;
    RemovalCounter removed;
    RegistryInTree registry{tree, removed};
    ScriptHostOnRegistry host{registry, 1252};
};

TEST_F(ScriptHostOnRegistryTest, WritesATextAndMakesTheKey) {
    EXPECT_TRUE(host.RegWrite("HKEY_CURRENT_USER\\Software\\New\\Run\\Name", "x"));
    EXPECT_EQ(text("Software\\New\\Run", "name"), std::string("1:x\0\0\0", 6));
}

TEST_F(ScriptHostOnRegistryTest, KnowsTheShortNamesInAnyCase) {
    EXPECT_TRUE(host.RegWrite("hkcu\\A\\n", "x"));
    EXPECT_TRUE(host.RegWrite("HKLM\\A\\n", "x"));
    EXPECT_TRUE(host.RegWrite("HKCR\\A\\n", "x"));
    EXPECT_NE(text("A", "n"), "(none)");
    EXPECT_TRUE(tree.find("Machine\\A"));
    EXPECT_TRUE(tree.find("Machine\\Software\\Classes\\A"));
    EXPECT_FALSE(host.RegWrite("HKEY_NOWHERE\\A\\n", "x"));
    EXPECT_FALSE(host.RegWrite("HKCU", "x"));
    EXPECT_FALSE(host.RegWrite("", "x"));
}

TEST_F(ScriptHostOnRegistryTest, ANameEndingInABackslashIsTheKey) {
    EXPECT_TRUE(host.RegWrite("HKCU\\A\\B\\", "default"));
    EXPECT_NE(text("A\\B", ""), "(none)");
    EXPECT_FALSE(host.RegDelete("HKCU\\A\\"));  // has a subkey
    EXPECT_TRUE(host.RegDelete("HKCU\\A\\B\\"));
    EXPECT_TRUE(host.RegDelete("HKCU\\A\\"));
    EXPECT_FALSE(host.RegDelete("HKCU\\A\\"));
}

TEST_F(ScriptHostOnRegistryTest, DeletesOneValue) {
    EXPECT_TRUE(host.RegWrite("HKCU\\A\\n", "x"));
    EXPECT_TRUE(host.RegWrite("HKCU\\A\\m", "x"));
    EXPECT_TRUE(host.RegDelete("HKCU\\A\\N"));
    EXPECT_EQ(text("A", "n"), "(none)");
    EXPECT_NE(text("A", "m"), "(none)");
    EXPECT_FALSE(host.RegDelete("HKCU\\A\\n"));
    EXPECT_FALSE(host.RegDelete("HKCU\\Missing\\n"));
}

}  // namespace
}  // namespace tidvane::platform
