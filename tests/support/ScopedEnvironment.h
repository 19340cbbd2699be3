// Environment variables set (or removed) for one test and given back their earlier values afterwards.
#pragma once

#include <cstdlib>
#include <map>
#include <optional>
#include <string>

#include "tests/support/Environment.h"

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
        for (const auto& [name, value] : m_saved) {
            if (value)
                ::setenv(name.c_str(), value->c_str(), 1);
            else
                ::unsetenv(name.c_str());
        }
    }

    // `value` nothing removes the variable.
    void set(const std::string& name, const std::optional<std::string>& value)
    {
        if (!m_saved.count(name)) {
            const char* old = std::getenv(name.c_str());
            m_saved[name] = old ? std::optional<std::string>(old) : std::nullopt;
        }
        if (value)
            ::setenv(name.c_str(), value->c_str(), 1);
        else
            ::unsetenv(name.c_str());
    }

private:
    std::map<std::string, std::optional<std::string>> m_saved;
};

}  // namespace rovanel::testing
