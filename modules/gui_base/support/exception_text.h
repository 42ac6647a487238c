// SPDX-License-Identifier: MIT
#pragma once

#include <exception>
#include <string>

/// How an operation of a panel reports an exception that it passes on or that ends there; `method` is
/// "Class::Method".
inline std::string ExceptionText(const char* method, const std::exception& error)
{
    return std::string("Exception in  ") + method + ": " + error.what();
}
