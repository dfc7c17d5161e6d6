// The registry as an object with a current position: hive, key, value, expected type, default.
//
// Failures show as a false result (KeyExists, DeleteKey, DeleteValue), as the default (Value get), or as a thrown
// base::RuntimeError with the source "<program>.cRegistry" (CreateKey, Value set, the associations). The enumerations
// never fail; their count is 0 then.
#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include "registry/registry_services.h"

namespace tidvane::registry {

using ByteArray = std::vector<std::uint8_t>;

// What a value may hold on the program's side. Texts are UTF-8.
using RegistryVariant = std::variant<std::monostate, bool, std::int16_t, std::int32_t, double, std::string, ByteArray>;

class cRegistry {
public:
    explicit cRegistry(const RegistryServices& services) : services_(services) {}

    // A remote computer. Below three characters it is cleared; otherwise it gets two backslashes in front unless it has
    // them.
    void setMachine(const std::string& sMachine);
    [[nodiscard]] const std::string& Machine() const { return machine_; }

    [[nodiscard]] bool KeyExists();
    // True, or throws 26001.
    bool CreateKey();
    // One key without subkeys.
    bool DeleteKey();
    bool DeleteValue();

    // Reads by the type the value has, which ValueType() tells afterwards. Texts lose their last character, which is
    // the NUL where there is one; a REG_EXPAND_SZ comes expanded; other types come as bytes. Reads the local registry
    // also when Machine is set and can be reached: intended.
    [[nodiscard]] RegistryVariant Value();
    // Writes by ValueType: 1 and 2 as text (the type follows the percent signs in it), 3 a byte array, 4 and 5 a whole
    // number as type 4. Other types write nothing and do not fail. Throws 26001, 0x800469A9, and 28 when Machine cannot
    // be reached.
    void setValue(const RegistryVariant& vValue);
    // The last value written.
    [[nodiscard]] const RegistryVariant& cachedValue() const { return cached_; }

    // Names in the order of the registry. Always true.
    bool EnumerateValues(std::vector<std::string>& sKeyNames, int& iKeyCount);
    bool EnumerateSections(std::vector<std::string>& sSect, int& iSectCount);

    void CreateEXEAssociation(std::string sExePath, const std::string& sClassName, const std::string& sClassDescription,
                              const std::string& sAssociation, const std::string& sOpenMenuText, bool bSupportPrint,
                              const std::string& sPrintMenuText, bool bSupportNew, const std::string& sNewMenuText,
                              bool bSupportInstall, const std::string& sInstallMenuText,
                              std::int32_t lDefaultIconIndex);
    // Three texts an item: name, menu text, command. Throws 0x800469AC for a wrong number, 0x800469AD when the class is
    // not defined (looked up in the current ClassKey).
    void CreateAdditionalEXEAssociations(const std::string& sClassName, const std::vector<std::string>& vItems);

    [[nodiscard]] std::uint32_t ValueType() const { return valueType_; }
    void setValueType(std::uint32_t type) { valueType_ = type; }
    [[nodiscard]] platform::HKey ClassKey() const { return classKey_; }
    void setClassKey(platform::HKey hive) { classKey_ = hive; }
    [[nodiscard]] const std::string& SectionKey() const { return sectionKey_; }
    void setSectionKey(std::string path) { sectionKey_ = std::move(path); }
    [[nodiscard]] const std::string& ValueKey() const { return valueKey_; }
    void setValueKey(std::string name) { valueKey_ = std::move(name); }
    [[nodiscard]] const RegistryVariant& Default() const { return default_; }
    void setDefault(RegistryVariant value) { default_ = std::move(value); }

    // Both set the five properties first. An empty text of type 1 is stored as the default.
    [[nodiscard]] RegistryVariant ValueEx(platform::HKey eKey, const std::string& sSectionKey,
                                          const std::string& sValueKey, std::uint32_t eValueType,
                                          const RegistryVariant& vDefault);
    void setValueEx(platform::HKey eKey, const std::string& sSectionKey, const std::string& sValueKey,
                    std::uint32_t eValueType, const RegistryVariant& vDefault, const RegistryVariant& NewValue);

private:
    void position(platform::HKey eKey, const std::string& sSectionKey, const std::string& sValueKey,
                  std::uint32_t eValueType, const RegistryVariant& vDefault);
    long write(platform::HKey key, const RegistryVariant& vValue);
    void writeInBothClassRoots(const std::string& sectionKey, const std::string& text);
    [[nodiscard]] std::string textOf(const RegistryVariant& value) const;
    [[nodiscard]] std::string expanded(const std::string& text);
    [[noreturn]] void raise(std::int32_t number, const std::string& description) const;
    [[nodiscard]] std::string setFailure() const;

    RegistryServices services_;
    platform::HKey classKey_ = 0;
    std::string sectionKey_;
    std::string valueKey_;
    RegistryVariant cached_;
    RegistryVariant default_;
    std::uint32_t valueType_ = 0;
    std::string machine_;
};

}  // namespace tidvane::registry
