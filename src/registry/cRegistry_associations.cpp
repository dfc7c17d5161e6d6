// The file associations of cRegistry.
#include "base/numbers.h"
#include "base/runtime_error.h"
#include "base/text.h"
#include "registry/cRegistry.h"

namespace tidvane::registry {

namespace {

constexpr std::int32_t kBadItems = static_cast<std::int32_t>(0x800469AC);
constexpr std::int32_t kNoClass = static_cast<std::int32_t>(0x800469AD);
constexpr std::size_t kTextsAnItem = 3;

std::string orElse(const std::string& text, const std::string& otherwise) {
    return text.empty() ? otherwise : text;
}

}  // namespace

// Writes the default value of a key below HKEY_CLASSES_ROOT and of its place in HKEY_LOCAL_MACHINE, where the position
// stays afterwards.
void cRegistry::writeInBothClassRoots(const std::string& sectionKey, const std::string& text) {
    valueType_ = platform::kRegSz;
    valueKey_.clear();
    sectionKey_ = sectionKey;
    classKey_ = platform::HKEY_CLASSES_ROOT_;
    setValue(text);
    classKey_ = platform::HKEY_LOCAL_MACHINE_;
    sectionKey_ = "SOFTWARE\\Classes\\" + sectionKey;
    setValue(text);
    sectionKey_ = sectionKey;
}

void cRegistry::CreateEXEAssociation(std::string sExePath, const std::string& sClassName,
                                     const std::string& sClassDescription, const std::string& sAssociation,
                                     const std::string& sOpenMenuText, bool bSupportPrint,
                                     const std::string& sPrintMenuText, bool bSupportNew,
                                     const std::string& sNewMenuText, bool bSupportInstall,
                                     const std::string& sInstallMenuText, std::int32_t lDefaultIconIndex) {
    sExePath = base::trimBlanks(sExePath);
    if (!sExePath.starts_with('"')) sExePath.insert(0, 1, '"');
    if (!sExePath.ends_with('"')) sExePath += '"';

    const std::string shell = sClassName + "\\shell\\";
    writeInBothClassRoots("." + sAssociation, sClassName);
    writeInBothClassRoots(sClassName, sClassDescription);
    writeInBothClassRoots(shell + "open", orElse(sOpenMenuText, "&Open"));
    writeInBothClassRoots(shell + "open\\command", sExePath + " \"%1\"");
    if (bSupportPrint) {
        writeInBothClassRoots(shell + "print", orElse(sPrintMenuText, "&Print"));
        writeInBothClassRoots(shell + "print\\command", sExePath + " /p \"%1\"");
    }
    if (bSupportInstall) {
        writeInBothClassRoots(shell + "add", orElse(sInstallMenuText, "&Install " + sAssociation));
        writeInBothClassRoots(shell + "add\\command", sExePath + " /a \"%1\"");
    }
    if (bSupportNew) {
        writeInBothClassRoots(shell + "new", orElse(sNewMenuText, "&New"));
        writeInBothClassRoots(shell + "new\\command", sExePath + " /n \"%1\"");
    }
    if (lDefaultIconIndex > -1) {
        writeInBothClassRoots(sClassName + "\\DefaultIcon",
                              sExePath + "," + base::numberText(static_cast<std::int64_t>(lDefaultIconIndex)));
    }
}

void cRegistry::CreateAdditionalEXEAssociations(const std::string& sClassName, const std::vector<std::string>& vItems) {
    if (vItems.size() % kTextsAnItem != 0) {
        raise(kBadItems,
              "Invalid parameter list passed to CreateAdditionalEXEAssociations - expected Name/Text/Command");
    }
    sectionKey_ = sClassName;
    if (!KeyExists()) {
        raise(kNoClass, "Error - attempt to create additional associations before class defined.");
    }
    for (std::size_t i = 0; i < vItems.size(); i += kTextsAnItem) {
        const std::string key = sClassName + "\\shell\\" + vItems[i];
        writeInBothClassRoots(key, vItems[i + 1]);
        writeInBothClassRoots(key + "\\command", vItems[i + 2]);
    }
}

}  // namespace tidvane::registry
