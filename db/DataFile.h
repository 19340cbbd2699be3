// Opening and reading files of the data directory, bounded and without exceptions.
#pragma once

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace rovanel
{

// `name` inside `directory`; when no file of exactly that name exists, the first entry whose name equals
// it case-insensitively (ASCII) is taken, so "GY.FUL" finds "gy.ful".
[[nodiscard]] std::filesystem::path dataFilePath(const std::filesystem::path& directory,
                                                 std::string_view name);

// std::fopen for a path; on Windows through the path's wide name, so any name the folder holds opens.
// Rovanel opens files only in binary modes ("rb", "wb"): CR LF stays two bytes.
[[nodiscard]] std::FILE* openFile(const std::filesystem::path& path, const char* mode);

// The whole file, or nothing when it cannot be opened or read.
[[nodiscard]] std::optional<std::string> readWholeFile(const std::filesystem::path& path);

// A file open for positioned reads within one user action; closed by the destructor.
class DataFile
{
public:
    DataFile() = default;
    explicit DataFile(const std::filesystem::path& path);
    DataFile(const DataFile&) = delete;
    DataFile& operator=(const DataFile&) = delete;
    DataFile(DataFile&& other) noexcept;
    DataFile& operator=(DataFile&& other) noexcept;
    ~DataFile();

    [[nodiscard]] bool isOpen() const { return m_file != nullptr; }
    [[nodiscard]] std::uint64_t size() const { return m_size; }

    // Up to `length` bytes from `offset`; fewer at the end of the file, none past it.
    [[nodiscard]] std::string read(std::uint64_t offset, std::size_t length);

    // The line starting at `offset` without its LF (a CR before the LF stays), cut to `maxLength`
    // bytes; `next` receives the offset after the whole line (past any cut-off rest). Nothing at or
    // past the end of the file.
    [[nodiscard]] std::optional<std::string> lineAt(std::uint64_t offset, std::size_t maxLength,
                                                    std::uint64_t* next = nullptr);

private:
    std::FILE* m_file = nullptr;
    std::uint64_t m_size = 0;
};

}  // namespace rovanel
