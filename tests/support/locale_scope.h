// SPDX-License-Identifier: MIT
#pragma once

/// The process speaks one of the locales that the build compiles for the tests ("de_DE.UTF-8", "fr_FR.UTF-8",
/// ...) for as long as this lives.

#include <clocale>
#include <cstdlib>
#include <stdexcept>
#include <string>

namespace support {

class LocaleScope
{
public:
    explicit LocaleScope(const char* name) : m_before(std::setlocale(LC_ALL, nullptr))
    {
        setenv("LOCPATH", TARNVIK_LOCALE_DIR, 1);
        if (std::setlocale(LC_ALL, name) == nullptr)
            throw std::runtime_error(std::string("LocaleScope: there is no locale ") + name);
    }
    ~LocaleScope() { std::setlocale(LC_ALL, m_before.c_str()); }
    LocaleScope(const LocaleScope&) = delete;
    LocaleScope& operator=(const LocaleScope&) = delete;

private:
    std::string m_before;
};

}  // namespace support
