#include "app/RegistrySettings.h"

#include <charconv>
#include <map>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "app/IniFile.h"
#include "app/UserPaths.h"
#include "db/Cp1250.h"
#include "db/DataFile.h"
#include "db/Text.h"

namespace rovanel
{

// The defaults in the order of creation. RtfFontSize is a string setting although it holds a number.
const std::array<RegistryDefault, 87> kRegistryDefaults = {{
    {"Software\\Rovanel", "", 0},
    {"\\Software\\Rovanel\\Version", "1.0", 0},
    {"\\Software\\Rovanel\\CheckUpg", "1", 2},
    {"\\Software\\Rovanel\\UpgShow", "1", 2},
    {"\\Software\\Rovanel\\HttpProxy", "", 0},
    {"\\Software\\Rovanel\\ProxyPort", "", 0},
    {"\\Software\\Rovanel\\NapiKezTeljesArbol", "0", 2},
    {"\\Software\\Rovanel\\RtfFontSize", "22", 0},
    {"\\Software\\Rovanel\\MaxBmp", "10", 1},
    {"\\Software\\Rovanel\\TTNemKellLeirasba", "0", 2},
    {"\\Software\\Rovanel\\RefColWidth\\0", "229", 1},
    {"\\Software\\Rovanel\\RefColWidth\\1", "85", 1},
    {"\\Software\\Rovanel\\RefColWidth\\2", "50", 1},
    {"\\Software\\Rovanel\\RefColWidth\\3", "50", 1},
    {"\\Software\\Rovanel\\RefColWidth\\4", "79", 1},
    {"\\Software\\Rovanel\\RefColWidth\\5", "30", 1},
    {"\\Software\\Rovanel\\RefColWidth\\6", "72", 1},
    {"\\Software\\Rovanel\\RefColWidth\\7", "75", 1},
    {"\\Software\\Rovanel\\RefColWidth\\8", "102", 1},
    {"\\Software\\Rovanel\\RefColWidth\\9", "47", 1},
    {"\\Software\\Rovanel\\RefColWidth\\10", "65", 1},
    {"\\Software\\Rovanel\\RefColWidth\\11", "65", 1},
    {"\\Software\\Rovanel\\RefColWidth\\12", "70", 1},
    {"\\Software\\Rovanel\\RefColWidth\\13", "82", 1},
    {"\\Software\\Rovanel\\RefColWidth\\14", "50", 1},
    {"\\Software\\Rovanel\\RefColWidth\\15", "30", 1},
    {"\\Software\\Rovanel\\RefColWidth\\16", "59", 1},
    {"\\Software\\Rovanel\\RefColWidth\\17", "50", 1},
    {"\\Software\\Rovanel\\RefColWidth\\18", "50", 1},
    {"\\Software\\Rovanel\\RefColWidth\\19", "50", 1},
    {"\\Software\\Rovanel\\RefColWidth\\20", "50", 1},
    {"\\Software\\Rovanel\\RefColWidth\\21", "50", 1},
    {"\\Software\\Rovanel\\RefColWidth\\22", "50", 1},
    {"\\Software\\Rovanel\\RefColWidth\\23", "50", 1},
    {"\\Software\\Rovanel\\RefColWidth\\24", "50", 1},
    {"\\Software\\Rovanel\\RefColWidth\\25", "50", 1},
    {"\\Software\\Rovanel\\RefColWidth\\26", "50", 1},
    {"\\Software\\Rovanel\\RefColWidth\\27", "50", 1},
    {"\\Software\\Rovanel\\RefColWidth\\28", "83", 1},
    {"\\Software\\Rovanel\\RefColWidth\\29", "0", 1},
    {"\\Software\\Rovanel\\RefColWidth\\30", "0", 1},
    {"\\Software\\Rovanel\\RefColWidth\\31", "0", 1},
    {"\\Software\\Rovanel\\RefColWidth\\32", "0", 1},
    {"\\Software\\Rovanel\\RefColWidth\\33", "0", 1},
    {"\\Software\\Rovanel\\RefColWidth\\34", "0", 1},
    {"\\Software\\Rovanel\\RefColWidth\\35", "0", 1},
    {"\\Software\\Rovanel\\RefColWidth\\36", "0", 1},
    {"\\Software\\Rovanel\\RefColWidth\\37", "0", 1},
    {"\\Software\\Rovanel\\RefColWidth\\38", "0", 1},
    {"\\Software\\Rovanel\\RefColWidth\\39", "0", 1},
    {"\\Software\\Rovanel\\RefColWidth\\40", "0", 1},
    {"\\Software\\Rovanel\\RpData\\SzuldatKell", "0", 2},
    {"\\Software\\Rovanel\\RpData\\LocalIniPath", "c:\\klinora\\rvlocal.ini", 0},
    {"\\Software\\Rovanel\\RpData\\KgyTxtPath", "c:\\rovanelw\\kgy.txt", 0},
    {"\\Software\\Rovanel\\RpData\\BetegAdatokIniPath", "c:\\klinora\\klinbeteg.ini", 0},
    {"\\Software\\Rovanel\\RpData\\BetegAdatokIniPathResp", "c:\\klinora\\KlinBetegN.ini", 0},
    {"\\Software\\Rovanel\\RpData\\BnoKell", "1", 2},
    {"\\Software\\Rovanel\\RpData\\VSp1", "47", 1},
    {"\\Software\\Rovanel\\RpData\\VSp2", "1", 1},
    {"\\Software\\Rovanel\\RpData\\VSp3", "14", 1},
    {"\\Software\\Rovanel\\RpData\\VSp4", "8", 1},
    {"\\Software\\Rovanel\\RpData\\VSp5", "6", 1},
    {"\\Software\\Rovanel\\RpData\\VSp6", "6", 1},
    {"\\Software\\Rovanel\\RpData\\HSp1", "27", 1},
    {"\\Software\\Rovanel\\RpData\\HSp2", "25", 1},
    {"\\Software\\Rovanel\\RpData\\HSp3", "5", 1},
    {"\\Software\\Rovanel\\RpData\\HSp4", "19", 1},
    {"\\Software\\Rovanel\\RpData\\HSp5", "8", 1},
    {"\\Software\\Rovanel\\RpData\\HSp6", "5", 1},
    {"\\Software\\Rovanel\\RpData\\HSp7", "15", 1},
    {"\\Software\\Rovanel\\RpData\\HSp8", "20", 1},
    {"\\Software\\Rovanel\\RpData\\HSp9", "25", 1},
    {"\\Software\\Rovanel\\RpData\\HSp10", "30", 1},
    {"\\Software\\Rovanel\\RpData\\HSp11", "35", 1},
    {"\\Software\\Rovanel\\RpData\\HSp12", "40", 1},
    {"\\Software\\Rovanel\\RpData\\HSp13", "164", 1},
    {"\\Software\\Rovanel\\RpData\\HSp14", "39", 1},
    {"\\Software\\Rovanel\\RpData\\HSp15", "0", 1},
    {"\\Software\\Rovanel\\RpData\\LeftAlloRegi", "160", 1},
    {"\\Software\\Rovanel\\RpData\\TopAlloRegi", "8", 1},
    {"\\Software\\Rovanel\\RpData\\LeftAllo", "160", 1},
    {"\\Software\\Rovanel\\RpData\\TopAllo", "8", 1},
    {"\\Software\\Rovanel\\RpData\\LeftFekvo", "655", 1},
    {"\\Software\\Rovanel\\RpData\\TopFekvo", "8", 1},
    {"\\Software\\Rovanel\\RpData\\RpFormatIdx", "0", 1},
    {"\\Software\\Rovanel\\RpData\\RpPrintModeIdx", "0", 1},
    {"", "", 0},
}};

namespace
{

Message registryError(const std::string& text) { return Message{text, "Rovanel", MessageIcon::Stop, false}; }

RegistryValueRead readSetting(RegistryStore& store, std::string_view path, RegistryValue::Kind kind)
{
    RegistryValueRead read;
    if (!store.keyExists(path)) {
        read.errorText = utf8ToCp1250(kRegistryNotFoundText);
        return read;
    }
    read = store.readValue(path, path);
    if (read.value && read.value->kind != kind) {
        read.value.reset();
        read.errorText = utf8ToCp1250(kRegistryWrongTypeText);
    }
    return read;
}

std::optional<Message> writeSetting(RegistryStore& store, std::string_view path, const RegistryValue& value)
{
    if (auto error = store.writeValue(path, path, value)) return registryError(*error);
    return std::nullopt;
}

// StrToInt: optional blanks and sign, decimal digits, nothing after them, within 32 bits.
std::optional<std::int32_t> decimalInteger(std::string_view text)
{
    while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
    if (!text.empty() && text.front() == '+') text.remove_prefix(1);
    std::int32_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (text.empty() || error != std::errc{} || end != text.data() + text.size()) return std::nullopt;
    return value;
}

}  // namespace

BoolRead RegReadBool(RegistryStore& store, std::string_view path)
{
    const RegistryValueRead read = readSetting(store, path, RegistryValue::Kind::Number);
    if (!read.value) return {false, registryError(read.errorText)};
    return {read.value->number != 0, std::nullopt};
}

StringRead RegReadString(RegistryStore& store, std::string_view path)
{
    RegistryValueRead read = readSetting(store, path, RegistryValue::Kind::String);
    if (!read.value) return {std::string(), registryError(read.errorText)};
    return {std::move(read.value->text), std::nullopt};
}

IntegerRead RegReadInteger(RegistryStore& store, std::string_view path)
{
    const RegistryValueRead read = readSetting(store, path, RegistryValue::Kind::Number);
    if (!read.value) return {0, registryError(read.errorText)};
    return {static_cast<std::int32_t>(read.value->number), std::nullopt};
}

std::optional<Message> RegWriteBool(RegistryStore& store, std::string_view path, bool value)
{
    return writeSetting(store, path, {RegistryValue::Kind::Number, {}, value ? 1u : 0u});
}

std::optional<Message> RegWriteString(RegistryStore& store, std::string_view path, std::string_view value)
{
    return writeSetting(store, path, {RegistryValue::Kind::String, std::string(value), 0});
}

std::optional<Message> RegWriteInteger(RegistryStore& store, std::string_view path, std::int32_t value)
{
    return writeSetting(store, path, {RegistryValue::Kind::Number, {}, static_cast<std::uint32_t>(value)});
}

std::optional<Message> EnsureRegistryDefaults(RegistryStore& store)
{
    return EnsureRegistryDefaults(store, kRegistryDefaults);
}

std::optional<Message> EnsureRegistryDefaults(RegistryStore& store, std::span<const RegistryDefault> table)
{
    store.beginUpdate();
    std::optional<Message> failure;
    for (const RegistryDefault& record : table) {
        if (record.path.empty()) break;
        if (store.keyExists(record.path)) continue;  // never overwritten, even without its value
        if (auto error = store.createKey(record.path)) {
            failure = registryError(*error);
            break;
        }
        std::optional<RegistryValue> value;
        if (record.type == 0) {
            value = RegistryValue{RegistryValue::Kind::String, std::string(record.defaultText), 0};
        } else if (record.type == 1 || record.type == 2) {
            const auto number = decimalInteger(record.defaultText);
            if (!number) {
                failure = registryError("'" + std::string(record.defaultText) + "'" +
                                        utf8ToCp1250(" nem érvényes egész szám."));
                break;
            }
            const std::uint32_t stored =
                record.type == 1 ? static_cast<std::uint32_t>(*number) : (*number != 0);
            value = RegistryValue{RegistryValue::Kind::Number, {}, stored};
        }
        if (!value) continue;  // an unknown type creates the key and writes nothing
        if (auto error = store.writeValue(record.path, record.path, *value)) {
            failure = registryError(*error);
            break;
        }
    }
    // What was made before an error stays; a failed store of it is the error to show when none came first.
    if (auto error = store.endUpdate(); error && !failure) failure = registryError(*error);
    return failure;
}

// ---------------------------------------------------------------------------------------------------
// The portable store: an INI-shaped file, one section per key, one line per value:
//   [Software\Rovanel\CheckUpg]
//   \Software\Rovanel\CheckUpg=dword:1
//   [Software\Rovanel\Version]
//   \Software\Rovanel\Version=sz:"1.0"
// String data stands between quotes; bytes below 0x20, 0x7F and '%' are written as %XX.

namespace
{

std::string_view withoutLeadingBackslash(std::string_view key)
{
    if (!key.empty() && key.front() == '\\') key.remove_prefix(1);
    return key;
}

int hexDigit(char c)
{
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    return -1;
}

std::string encodeValue(const RegistryValue& value)
{
    if (value.kind == RegistryValue::Kind::Number) return "dword:" + std::to_string(value.number);
    std::string result = "sz:\"";
    static constexpr char kHex[] = "0123456789ABCDEF";
    for (const char c : value.text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x20 || byte == 0x7F || c == '%') {
            result += '%';
            result += kHex[byte >> 4];
            result += kHex[byte & 15];
        } else {
            result += c;
        }
    }
    return result + "\"";
}

RegistryValue decodeValue(std::string_view data)
{
    RegistryValue value;
    if (data.starts_with("dword:")) {
        data.remove_prefix(6);
        std::uint32_t number = 0;
        const auto [end, error] = std::from_chars(data.data(), data.data() + data.size(), number);
        if (!data.empty() && error == std::errc{} && end == data.data() + data.size()) {
            value.kind = RegistryValue::Kind::Number;
            value.number = number;
        }
        return value;
    }
    if (data.starts_with("sz:\"") && data.size() >= 5 && data.back() == '"') {
        data = data.substr(4, data.size() - 5);
        value.kind = RegistryValue::Kind::String;
        for (std::size_t i = 0; i < data.size(); ++i) {
            if (data[i] == '%' && i + 2 < data.size() && hexDigit(data[i + 1]) >= 0 &&
                hexDigit(data[i + 2]) >= 0) {
                value.text += static_cast<char>(hexDigit(data[i + 1]) * 16 + hexDigit(data[i + 2]));
                i += 2;
            } else {
                value.text += data[i];
            }
        }
    }
    return value;  // anything else is a value of a type no reader accepts
}

class PortableRegistry final : public RegistryStore
{
public:
    explicit PortableRegistry(std::filesystem::path file) : m_file(std::move(file)) {}

    bool keyExists(std::string_view key) override
    {
        const Content content = load();
        const std::string wanted = upperAscii(withoutLeadingBackslash(key));
        for (const Key& existing : content.keys) {
            const std::string name = upperAscii(existing.path);
            if (name == wanted ||
                (name.size() > wanted.size() && name.starts_with(wanted) && name[wanted.size()] == '\\'))
                return true;
        }
        return false;
    }

    std::optional<std::string> createKey(std::string_view key) override
    {
        Content content = load();
        findOrAddKey(content, key);
        return store(content);
    }

    RegistryValueRead readValue(std::string_view key, std::string_view name) override
    {
        RegistryValueRead read;
        const Content content = load();
        if (const Key* found = findKey(content, key))
            for (const auto& [valueName, data] : found->values)
                if (upperAscii(valueName) == upperAscii(name)) {
                    read.value = decodeValue(data);
                    return read;
                }
        read.errorText = utf8ToCp1250(kRegistryNotFoundText);
        return read;
    }

    std::optional<std::string> writeValue(std::string_view key, std::string_view name,
                                          const RegistryValue& value) override
    {
        if (!keyExists(key)) return utf8ToCp1250(kRegistryNotFoundText);
        Content content = load();
        Key& target = findOrAddKey(content, key);  // a key that exists only as a parent gets its section
        bool replaced = false;
        for (auto& [valueName, data] : target.values)
            if (upperAscii(valueName) == upperAscii(name)) {
                data = encodeValue(value);
                replaced = true;
                break;
            }
        if (!replaced) target.values.emplace_back(std::string(name), encodeValue(value));
        return store(content);
    }

    void beginUpdate() override { m_held = load(); }

    std::optional<std::string> endUpdate() override
    {
        if (!m_held) return std::nullopt;
        Content content = std::move(*m_held);
        const bool changed = m_heldChanged;
        m_held.reset();
        m_heldChanged = false;
        return changed ? store(content) : std::nullopt;
    }

private:
    struct Key {
        std::string path;  // without a leading backslash, as first written
        std::vector<std::pair<std::string, std::string>> values;  // name, encoded data
    };
    struct Content {
        std::vector<Key> keys;
    };

    Content load() const
    {
        if (m_held) return *m_held;
        Content content;
        const auto text = readWholeFile(m_file);
        if (!text) return content;
        // Keys and value names by their upper-case form, so that a file of many sections or values loads
        // in linear time (every read loads the file).
        std::unordered_map<std::string, std::size_t> keyPositions;
        std::vector<std::unordered_set<std::string>> valueNames;
        std::size_t current = 0;
        bool inKey = false;
        std::string_view rest = *text;
        while (!rest.empty()) {
            const std::size_t newline = rest.find('\n');
            const std::string_view line = stripBlanks(rest.substr(0, newline));
            rest = newline == std::string_view::npos ? std::string_view{} : rest.substr(newline + 1);
            if (line.empty() || line.front() == ';') continue;
            if (line.front() == '[' && line.back() == ']') {
                const std::string_view path =
                    withoutLeadingBackslash(stripBlanks(line.substr(1, line.size() - 2)));
                const auto [position, added] =
                    keyPositions.try_emplace(upperAscii(path), content.keys.size());
                if (added) {
                    content.keys.push_back({std::string(path), {}});
                    valueNames.emplace_back();
                }
                current = position->second;
                inKey = true;
                continue;
            }
            const std::size_t equals = line.find('=');
            if (!inKey || equals == std::string_view::npos) continue;
            const std::string name(stripBlanks(line.substr(0, equals)));
            // The first of duplicate lines wins, as in every INI file.
            if (valueNames[current].insert(upperAscii(name)).second)
                content.keys[current].values.emplace_back(name,
                                                          std::string(stripBlanks(line.substr(equals + 1))));
        }
        return content;
    }

    std::optional<std::string> store(const Content& content)
    {
        if (m_held) {
            m_held = content;
            m_heldChanged = true;
            return std::nullopt;
        }
        std::string text = "; Rovanel: per-user settings (the registry keys under HKEY_CURRENT_USER)\r\n";
        for (const Key& key : content.keys) {
            text += "[" + key.path + "]\r\n";
            for (const auto& [name, data] : key.values) text += name + "=" + data + "\r\n";
        }
        if (!writeFileAtomically(m_file, text)) return utf8ToCp1250(kRegistryAccessDeniedText);
        return std::nullopt;
    }

    static std::ptrdiff_t keyPosition(const Content& content, std::string_view key)
    {
        const std::string wanted = upperAscii(withoutLeadingBackslash(key));
        for (std::size_t i = 0; i < content.keys.size(); ++i)
            if (upperAscii(content.keys[i].path) == wanted) return static_cast<std::ptrdiff_t>(i);
        return -1;
    }

    static const Key* findKey(const Content& content, std::string_view key)
    {
        const std::ptrdiff_t position = keyPosition(content, key);
        return position < 0 ? nullptr : &content.keys[static_cast<std::size_t>(position)];
    }

    static Key& findOrAddKey(Content& content, std::string_view key)
    {
        const std::ptrdiff_t position = keyPosition(content, key);
        if (position >= 0) return content.keys[static_cast<std::size_t>(position)];
        content.keys.push_back({std::string(withoutLeadingBackslash(key)), {}});
        return content.keys.back();
    }

    std::filesystem::path m_file;
    std::optional<Content> m_held;
    bool m_heldChanged = false;
};

}  // namespace

std::unique_ptr<RegistryStore> openRegistryFile(const std::filesystem::path& file)
{
    return std::make_unique<PortableRegistry>(file);
}

#if !defined(_WIN32)
std::unique_ptr<RegistryStore> openUserRegistry()
{
    return openRegistryFile(userConfigDirectory() / "registry.ini");
}
#endif

}  // namespace rovanel
