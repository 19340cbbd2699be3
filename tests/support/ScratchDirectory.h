// A fresh directory under the system's temporary folder for one test, removed afterwards, with helpers
// to write data files byte for byte.
#pragma once

#include <atomic>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <string_view>

namespace rovanel::testing
{

class ScratchDirectory
{
public:
    ScratchDirectory()
    {
        static std::atomic<int> serial{0};
        std::random_device device;
        m_path = std::filesystem::temp_directory_path() /
                 ("rovanel-test-" + std::to_string(device()) + "-" + std::to_string(serial++));
        std::filesystem::create_directories(m_path);
    }
    ScratchDirectory(const ScratchDirectory&) = delete;
    ScratchDirectory& operator=(const ScratchDirectory&) = delete;
    ~ScratchDirectory()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }

    [[nodiscard]] const std::filesystem::path& path() const { return m_path; }

    void write(std::string_view name, std::string_view bytes) const
    {
        std::ofstream out(m_path / std::string(name), std::ios::binary | std::ios::trunc);
        out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    }

    void remove(std::string_view name) const
    {
        std::error_code ignored;
        std::filesystem::remove(m_path / std::string(name), ignored);
    }

    [[nodiscard]] std::string read(std::string_view name) const
    {
        std::ifstream in(m_path / std::string(name), std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    }

private:
    std::filesystem::path m_path;
};

}  // namespace rovanel::testing
