// Environment variables set (or removed) for one test and given back their earlier values afterwards.
#pragma once

#include <cstdlib>
#include <map>
#include <optional>
#include <string>

namespace rovanel::testing
{

class ScopedEnvironment
{
public:
    ScopedEnvironment() = default;
    ScopedEnvironment(const ScopedEnvironment&) = delete;
    ScopedEnvironment& operator=(const ScopedEnvironment&) = delete;
    ~ScopedEnvironment()
    {
        for (const auto& [name, value] : m_saved) put(name, value);
    }

    // `value` nothing removes the variable.
    void set(const std::string& name, const std::optional<std::string>& value)
    {
        const char* old = std::getenv(name.c_str());
        m_saved.try_emplace(name, old ? std::optional<std::string>(old) : std::nullopt);
        put(name, value);
    }

private:
    static void put(const std::string& name, const std::optional<std::string>& value)
    {
#if defined(_WIN32)
        ::_putenv_s(name.c_str(), value ? value->c_str() : "");  // an empty value removes it
#else
        if (value)
            ::setenv(name.c_str(), value->c_str(), 1);
        else
            ::unsetenv(name.c_str());
#endif
    }
    std::map<std::string, std::optional<std::string>> m_saved;
};

}  // namespace rovanel::testing
