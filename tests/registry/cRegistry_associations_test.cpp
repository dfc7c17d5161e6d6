#include "base/runtime_error.h"
#include "registry/cRegistry.h"
#include "registry_fixture.h"

namespace tidvane::registry {
namespace {

using namespace std::string_literals;

class Associations : public RegistryFixture {
protected:
    // The default value of a key of HKEY_CLASSES_ROOT.
    std::string ofClass(const std::string& path) {
        const std::string text = stored(tree.find("Machine\\Software\\Classes\\" + path), "");
        return text.starts_with("1:") ? text.substr(2, text.size() - 3) : text;
    }

    cRegistry object{services};
};

TEST_F(Associations, WriteTheWholeSetWithItsDefaultWords) {
    object.CreateEXEAssociation("  C:\\Program Files\\x.exe ", "X.Document", "X document", "xyz", "", true, "", true,
                                "", true, "", 2);
    const std::string exe = "\"C:\\Program Files\\x.exe\"";
    EXPECT_EQ(ofClass(".xyz"), "X.Document");
    EXPECT_EQ(ofClass("X.Document"), "X document");
    EXPECT_EQ(ofClass("X.Document\\shell\\open"), "&Open");
    EXPECT_EQ(ofClass("X.Document\\shell\\open\\command"), exe + " \"%1\"");
    EXPECT_EQ(ofClass("X.Document\\shell\\print"), "&Print");
    EXPECT_EQ(ofClass("X.Document\\shell\\print\\command"), exe + " /p \"%1\"");
    EXPECT_EQ(ofClass("X.Document\\shell\\add"), "&Install xyz");
    EXPECT_EQ(ofClass("X.Document\\shell\\add\\command"), exe + " /a \"%1\"");
    EXPECT_EQ(ofClass("X.Document\\shell\\new"), "&New");
    EXPECT_EQ(ofClass("X.Document\\shell\\new\\command"), exe + " /n \"%1\"");
    EXPECT_EQ(ofClass("X.Document\\DefaultIcon"), exe + ",2");
}

TEST_F(Associations, WriteOnlyWhatIsSupportedAndTheGivenWords) {
    object.CreateEXEAssociation("\"x.exe\"", "X", "d", "x", "Start", true, "Paper", false, "n", false, "i", -1);
    EXPECT_EQ(ofClass("X\\shell\\open"), "Start");
    EXPECT_EQ(ofClass("X\\shell\\open\\command"), "\"x.exe\" \"%1\"");
    EXPECT_EQ(ofClass("X\\shell\\print"), "Paper");
    EXPECT_EQ(ofClass("X\\shell\\add"), "none");
    EXPECT_EQ(ofClass("X\\shell\\new"), "none");
    EXPECT_EQ(ofClass("X\\DefaultIcon"), "none");
}

// Remembers in which hives keys were made.
class RememberingHives : public platform::RegistryInTree {
public:
    using RegistryInTree::RegistryInTree;
    platform::RegResult RegCreateKeyExA(platform::HKey parent, const std::string& path, std::uint32_t access,
                                        platform::HKey& key, bool& created) override {
        made += (parent == HKEY_CLASSES_ROOT_ ? "HKCR " : "HKLM ") + path + "\n";
        return RegistryInTree::RegCreateKeyExA(parent, path, access, key, created);
    }
    std::string made;
};

TEST_F(Associations, WriteIntoBothClassRootsAndStayAtTheMachine) {
    RememberingHives remembering(tree, removed);
    cRegistry writer({remembering, environment, system});
    writer.setClassKey(HKEY_CURRENT_USER_);
    writer.CreateEXEAssociation("x.exe", "X", "d", "x", "", false, "", false, "", false, "", -1);
    EXPECT_EQ(remembering.made,
              "HKCR .x\nHKLM SOFTWARE\\Classes\\.x\nHKCR X\nHKLM SOFTWARE\\Classes\\X\n"
              "HKCR X\\shell\\open\nHKLM SOFTWARE\\Classes\\X\\shell\\open\n"
              "HKCR X\\shell\\open\\command\nHKLM SOFTWARE\\Classes\\X\\shell\\open\\command\n");
    EXPECT_EQ(writer.ClassKey(), HKEY_LOCAL_MACHINE_);
    EXPECT_EQ(writer.SectionKey(), "X\\shell\\open\\command");
}

TEST_F(Associations, FurtherItemsAreWrittenBelowTheClass) {
    object.CreateEXEAssociation("x.exe", "X", "d", "x", "", false, "", false, "", false, "", -1);
    object.setClassKey(HKEY_CLASSES_ROOT_);
    object.CreateAdditionalEXEAssociations("X", {"edit", "&Edit", "x.exe /e", "view", "&View", "x.exe /v"});
    EXPECT_EQ(ofClass("X\\shell\\edit"), "&Edit");
    EXPECT_EQ(ofClass("X\\shell\\edit\\command"), "x.exe /e");
    EXPECT_EQ(ofClass("X\\shell\\view"), "&View");
    EXPECT_EQ(ofClass("X\\shell\\view\\command"), "x.exe /v");
}

TEST_F(Associations, ItemsThatAreNotThreesAreRefused) {
    try {
        object.CreateAdditionalEXEAssociations("X", {"edit", "&Edit"});
        ADD_FAILURE() << "nothing was thrown";
    } catch (const base::RuntimeError& error) {
        EXPECT_EQ(error.number, static_cast<std::int32_t>(0x800469AC));
        EXPECT_EQ(error.source, "Tidvane.cRegistry");
        EXPECT_EQ(error.description,
                  "Invalid parameter list passed to CreateAdditionalEXEAssociations - expected Name/Text/Command");
    }
}

TEST_F(Associations, AClassThatIsNotDefinedInTheCurrentHiveIsRefused) {
    object.CreateEXEAssociation("x.exe", "X", "d", "x", "", false, "", false, "", false, "", -1);
    object.setClassKey(HKEY_CURRENT_USER_);
    try {
        object.CreateAdditionalEXEAssociations("X", {"edit", "&Edit", "x.exe /e"});
        ADD_FAILURE() << "nothing was thrown";
    } catch (const base::RuntimeError& error) {
        EXPECT_EQ(error.number, static_cast<std::int32_t>(0x800469AD));
        EXPECT_EQ(error.description, "Error - attempt to create additional associations before class defined.");
    }
    EXPECT_EQ(ofClass("X\\shell\\edit"), "none");
}

}  // namespace
}  // namespace tidvane::registry
