// Per-user settings stored the way the Windows registry holds them under HKEY_CURRENT_USER: a setting
// whose path is P ("\Software\Rovanel\CheckUpg") is the key P holding one value whose name is P again.
// Two stores keep the same semantics: the registry itself on Windows, and a per-user file elsewhere
// (docs/decisions/portable-registry.md). Readers and writers return the error as a Message (the
// error's text, caption "Rovanel", stop icon) for the window to show; they never show anything.
// All texts are Windows-1250.
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "db/Message.h"

namespace rovanel
{

// One value of a key. Booleans are stored as numbers 0 and 1, as the registry's boolean-as-number.
struct RegistryValue {
    enum class Kind { String, Number, Other };
    Kind kind = Kind::Other;
    std::string text;          // Kind::String
    std::uint32_t number = 0;  // Kind::Number

    friend bool operator==(const RegistryValue&, const RegistryValue&) = default;
};

// A value read from a store, or the text of the error that stopped the read.
struct RegistryValueRead {
    std::optional<RegistryValue> value;
    std::string errorText;
};

// The handful of registry operations the settings use. Key paths may start with a backslash (the key is
// then taken from the root all the same); keys and value names match without regard to case.
class RegistryStore
{
public:
    virtual ~RegistryStore() = default;
    // Opening the key without creating it succeeds (a key exists when it or a key below it was created).
    [[nodiscard]] virtual bool keyExists(std::string_view key) = 0;
    // Opens the key with creation; the error text when that fails.
    [[nodiscard]] virtual std::optional<std::string> createKey(std::string_view key) = 0;
    [[nodiscard]] virtual RegistryValueRead readValue(std::string_view key, std::string_view name) = 0;
    // Writes into an existing key only; the error text when the key is missing or the write fails.
    [[nodiscard]] virtual std::optional<std::string> writeValue(std::string_view key, std::string_view name,
                                                                const RegistryValue& value) = 0;
    // Changes made between the two calls may be kept and stored together at endUpdate.
    virtual void beginUpdate() {}
    [[nodiscard]] virtual std::optional<std::string> endUpdate() { return std::nullopt; }
};

// The current user's store: the registry on Windows, else `userConfigDirectory()/registry.ini`.
[[nodiscard]] std::unique_ptr<RegistryStore> openUserRegistry();

// The portable store kept in `file` (created on the first write, written atomically).
[[nodiscard]] std::unique_ptr<RegistryStore> openRegistryFile(const std::filesystem::path& file);

// Error texts the portable store gives, the Windows system's own texts for the same failures.
inline constexpr std::string_view kRegistryNotFoundText =
    "A rendszer nem találja a megadott fájlt.";  // UTF-8
inline constexpr std::string_view kRegistryWrongTypeText = "Az adat érvénytelen.";
inline constexpr std::string_view kRegistryAccessDeniedText = "A hozzáférés megtagadva.";

struct BoolRead {
    bool value = false;
    std::optional<Message> error;
};
struct StringRead {
    std::string value;
    std::optional<Message> error;
};
struct IntegerRead {
    std::int32_t value = 0;
    std::optional<Message> error;
};

// Reads the value named `path` in the key `path`. A missing key or value or a value of another type
// gives false, "" or 0 with the error.
[[nodiscard]] BoolRead RegReadBool(RegistryStore& store, std::string_view path);
[[nodiscard]] StringRead RegReadString(RegistryStore& store, std::string_view path);
[[nodiscard]] IntegerRead RegReadInteger(RegistryStore& store, std::string_view path);

// Writes the value named `path` into the key `path`, which must exist (a writer never creates it).
[[nodiscard]] std::optional<Message> RegWriteBool(RegistryStore& store, std::string_view path, bool value);
[[nodiscard]] std::optional<Message> RegWriteString(RegistryStore& store, std::string_view path,
                                                    std::string_view value);
[[nodiscard]] std::optional<Message> RegWriteInteger(RegistryStore& store, std::string_view path,
                                                     std::int32_t value);

// One record of the defaults table: path, default as text, type (0 string, 1 integer, 2 boolean).
struct RegistryDefault {
    std::string_view path;
    std::string_view defaultText;
    std::int32_t type = 0;
};

// The 86 settings in the order of creation, then the empty record that ends the table.
extern const std::array<RegistryDefault, 87> kRegistryDefaults;

// Creates every key of `table` that does not exist, with its default value; an existing key is left
// alone even when its value is missing. The first error ends the work and is returned; the keys made
// before it stay.
[[nodiscard]] std::optional<Message> EnsureRegistryDefaults(RegistryStore& store);
[[nodiscard]] std::optional<Message> EnsureRegistryDefaults(RegistryStore& store,
                                                            std::span<const RegistryDefault> table);

}  // namespace rovanel
