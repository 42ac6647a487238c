// SPDX-License-Identifier: MIT
#include "core/detection_limit.h"

namespace detection_limit {

std::optional<std::string_view> Behind(std::string_view text)
{
    for (const std::string_view sign : {"<=", "<", "\u2264"})
        if (text.starts_with(sign))
            return text.substr(sign.size());
    return std::nullopt;
}

std::optional<double> Parse(std::string_view text, const numbertext::Separators& separators)
{
    const std::string trimmed = numbertext::Trim(text);
    const auto limit = Behind(trimmed);
    const auto value = numbertext::Parse(limit.value_or(trimmed), separators);
    if (!value || *value < 0.0)
        return std::nullopt;
    return limit ? Make(*value) : *value;
}

std::string Format(double typed, const numbertext::Style& style, const numbertext::Separators& separators)
{
    return Is(typed) ? "<" + numbertext::Format(-typed, style, separators)
                     : numbertext::Format(typed, style, separators);
}

}  // namespace detection_limit
