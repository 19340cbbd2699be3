// The registry store on Windows: keys under HKEY_CURRENT_USER opened with full access, errors given as
// the system's own message text for the error code.
#if defined(_WIN32)

#include <windows.h>

#include <string>
#include <vector>

#include "app/RegistrySettings.h"
#include "db/Cp1250.h"

namespace rovanel
{
namespace
{

std::wstring wide(std::string_view cp1250)
{
    const std::string utf8 = cp1250ToUtf8(cp1250);
    if (utf8.empty()) return {};
    const int length =
        MultiByteToWideChar(CP_UTF8, 0, utf8.data(), static_cast<int>(utf8.size()), nullptr, 0);
    std::wstring result(static_cast<std::size_t>(length), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, utf8.data(), static_cast<int>(utf8.size()), result.data(), length);
    return result;
}

std::string narrow(const std::wstring& text)
{
    if (text.empty()) return {};
    const int length = WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), nullptr, 0,
                                           nullptr, nullptr);
    std::string utf8(static_cast<std::size_t>(length), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), utf8.data(), length, nullptr,
                        nullptr);
    return utf8ToCp1250(utf8);
}

// The system's text for `code`, without its line end.
std::string systemMessage(LSTATUS code)
{
    wchar_t* buffer = nullptr;
    const DWORD length = FormatMessageW(
        FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
        static_cast<DWORD>(code), 0, reinterpret_cast<wchar_t*>(&buffer), 0, nullptr);
    std::wstring text = length && buffer ? std::wstring(buffer, length) : std::wstring();
    if (buffer) LocalFree(buffer);
    while (!text.empty() && (text.back() == L'\n' || text.back() == L'\r' || text.back() == L' '))
        text.pop_back();
    if (text.empty()) return "Error " + std::to_string(code);
    return narrow(text);
}

// A leading backslash names the same key from the root: "\\Software\\Rovanel" and "Software\\Rovanel"
// are one key.
std::wstring keyPath(std::string_view key)
{
    if (!key.empty() && key.front() == '\\') key.remove_prefix(1);
    return wide(key);
}

class OpenKey
{
public:
    OpenKey(std::string_view key, bool create)
    {
        const std::wstring path = keyPath(key);
        if (create)
            m_status = RegCreateKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                                       KEY_ALL_ACCESS, nullptr, &m_key, nullptr);
        else
            m_status = RegOpenKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, KEY_ALL_ACCESS, &m_key);
    }
    ~OpenKey()
    {
        if (m_status == ERROR_SUCCESS) RegCloseKey(m_key);
    }
    OpenKey(const OpenKey&) = delete;
    OpenKey& operator=(const OpenKey&) = delete;

    [[nodiscard]] bool ok() const { return m_status == ERROR_SUCCESS; }
    [[nodiscard]] LSTATUS status() const { return m_status; }
    [[nodiscard]] HKEY key() const { return m_key; }

private:
    HKEY m_key = nullptr;
    LSTATUS m_status = ERROR_SUCCESS;
};

class WindowsRegistry final : public RegistryStore
{
public:
    bool keyExists(std::string_view key) override { return OpenKey(key, false).ok(); }

    std::optional<std::string> createKey(std::string_view key) override
    {
        const OpenKey opened(key, true);
        if (!opened.ok()) return systemMessage(opened.status());
        return std::nullopt;
    }

    RegistryValueRead readValue(std::string_view key, std::string_view name) override
    {
        RegistryValueRead read;
        const OpenKey opened(key, false);
        if (!opened.ok()) {
            read.errorText = systemMessage(opened.status());
            return read;
        }
        const std::wstring valueName = wide(name);
        DWORD type = 0;
        DWORD size = 0;
        LSTATUS status = RegQueryValueExW(opened.key(), valueName.c_str(), nullptr, &type, nullptr, &size);
        if (status != ERROR_SUCCESS) {
            read.errorText = systemMessage(status);
            return read;
        }
        std::vector<BYTE> data(size + sizeof(wchar_t));
        status = RegQueryValueExW(opened.key(), valueName.c_str(), nullptr, &type, data.data(), &size);
        if (status != ERROR_SUCCESS) {
            read.errorText = systemMessage(status);
            return read;
        }
        RegistryValue value;
        if ((type == REG_SZ || type == REG_EXPAND_SZ) && size % sizeof(wchar_t) == 0) {
            std::wstring text(reinterpret_cast<const wchar_t*>(data.data()), size / sizeof(wchar_t));
            while (!text.empty() && text.back() == L'\0') text.pop_back();
            value.kind = RegistryValue::Kind::String;
            value.text = narrow(text);
        } else if (type == REG_DWORD && size == sizeof(DWORD)) {
            DWORD number = 0;
            CopyMemory(&number, data.data(), sizeof number);
            value.kind = RegistryValue::Kind::Number;
            value.number = number;
        }
        read.value = std::move(value);
        return read;
    }

    std::optional<std::string> writeValue(std::string_view key, std::string_view name,
                                          const RegistryValue& value) override
    {
        const OpenKey opened(key, false);
        if (!opened.ok()) return systemMessage(opened.status());
        const std::wstring valueName = wide(name);
        LSTATUS status = ERROR_INVALID_DATA;
        if (value.kind == RegistryValue::Kind::String) {
            const std::wstring text = wide(value.text);
            status = RegSetValueExW(opened.key(), valueName.c_str(), 0, REG_SZ,
                                    reinterpret_cast<const BYTE*>(text.c_str()),
                                    static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
        } else if (value.kind == RegistryValue::Kind::Number) {
            const DWORD number = value.number;
            status = RegSetValueExW(opened.key(), valueName.c_str(), 0, REG_DWORD,
                                    reinterpret_cast<const BYTE*>(&number), sizeof number);
        }
        if (status != ERROR_SUCCESS) return systemMessage(status);
        return std::nullopt;
    }
};

}  // namespace

std::unique_ptr<RegistryStore> openUserRegistry() { return std::make_unique<WindowsRegistry>(); }

}  // namespace rovanel

#endif  // _WIN32
