#include "db/DataFile.h"

#include <algorithm>
#include <system_error>

#include "db/Text.h"

namespace rovanel
{

std::filesystem::path dataFilePath(const std::filesystem::path& directory, std::string_view name)
{
    std::filesystem::path exact = directory / std::filesystem::path(std::string(name));
    std::error_code error;
    if (std::filesystem::exists(exact, error)) return exact;
    for (std::filesystem::directory_iterator it(directory, error), end; !error && it != end;
         it.increment(error)) {
        const std::string entry = it->path().filename().string();
        if (equalsIgnoringAsciiCase(entry, name)) return it->path();
    }
    return exact;
}

std::FILE* openFile(const std::filesystem::path& path, const char* mode)
{
#if defined(_WIN32)
    const std::string_view narrow(mode);
    return ::_wfopen(path.c_str(), std::wstring(narrow.begin(), narrow.end()).c_str());
#else
    return std::fopen(path.c_str(), mode);
#endif
}

std::optional<std::string> readWholeFile(const std::filesystem::path& path)
{
    DataFile file(path);
    if (!file.isOpen()) return std::nullopt;
    std::string content = file.read(0, static_cast<std::size_t>(file.size()));
    if (content.size() != file.size()) return std::nullopt;
    return content;
}

DataFile::DataFile(const std::filesystem::path& path)
{
    std::error_code error;
    if (std::filesystem::is_directory(path, error)) return;
    m_file = openFile(path, "rb");
    if (!m_file) return;
    if (std::fseek(m_file, 0, SEEK_END) != 0) {
        std::fclose(m_file);
        m_file = nullptr;
        return;
    }
    const long end = std::ftell(m_file);
    m_size = end > 0 ? static_cast<std::uint64_t>(end) : 0;
}

DataFile::DataFile(DataFile&& other) noexcept : m_file(other.m_file), m_size(other.m_size)
{
    other.m_file = nullptr;
    other.m_size = 0;
}

DataFile& DataFile::operator=(DataFile&& other) noexcept
{
    if (this != &other) {
        if (m_file) std::fclose(m_file);
        m_file = other.m_file;
        m_size = other.m_size;
        other.m_file = nullptr;
        other.m_size = 0;
    }
    return *this;
}

DataFile::~DataFile()
{
    if (m_file) std::fclose(m_file);
}

std::string DataFile::read(std::uint64_t offset, std::size_t length)
{
    if (!m_file || offset >= m_size) return {};
    const std::size_t available = static_cast<std::size_t>(std::min<std::uint64_t>(length, m_size - offset));
    std::string buffer(available, '\0');
    if (std::fseek(m_file, static_cast<long>(offset), SEEK_SET) != 0) return {};
    const std::size_t got = std::fread(buffer.data(), 1, available, m_file);
    buffer.resize(got);
    return buffer;
}

std::optional<std::string> DataFile::lineAt(std::uint64_t offset, std::size_t maxLength, std::uint64_t* next)
{
    if (!m_file || offset >= m_size) return std::nullopt;
    if (std::fseek(m_file, static_cast<long>(offset), SEEK_SET) != 0) return std::nullopt;
    std::string line;
    std::uint64_t position = offset;
    int c = 0;
    while ((c = std::fgetc(m_file)) != EOF) {
        ++position;
        if (c == '\n') break;
        if (line.size() < maxLength) line.push_back(static_cast<char>(c));
    }
    if (next) *next = position;
    return line;
}

}  // namespace rovanel
