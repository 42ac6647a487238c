// SPDX-License-Identifier: MIT
#include "wxcurl/secrets.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace secrets {

namespace {

constexpr std::string_view kStruck = "***";
constexpr std::array<std::string_view, 4> kHeaders{
    "authorization:", "proxy-authorization:", "cookie:", "set-cookie:"};

bool StartsWith(std::string_view text, std::string_view lower)
{
    return text.size() >= lower.size() &&
           std::ranges::equal(text.substr(0, lower.size()), lower, {}, [](char c) {
               return static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
           });
}

/// Where the value of a header with credentials begins; npos for other lines.
std::size_t SecretOf(std::string_view line)
{
    for (std::size_t start = 0; start < line.size(); ++start) {
        // Traces put a mark before a line.
        if (start > 0 && line[start - 1] != ' ' && line[start - 1] != '>' && line[start - 1] != '<')
            continue;
        for (const std::string_view header : kHeaders) {
            if (StartsWith(line.substr(start), header))
                return start + header.size();
        }
    }
    return std::string_view::npos;
}

std::string WithoutUsers(std::string_view line)
{
    std::string text;
    while (!line.empty()) {
        const auto scheme = line.find("://");
        if (scheme == std::string_view::npos)
            break;
        const auto begin = scheme + 3;
        const auto end = std::min(line.find_first_of(" /?#\"'<>\t", begin), line.size());
        const auto at = line.substr(begin, end - begin).rfind('@');
        text += line.substr(0, begin);
        if (at != std::string_view::npos)
            text.append(kStruck) += '@';
        line.remove_prefix(at == std::string_view::npos ? begin : begin + at + 1);
    }
    return text.append(line);
}

}  // namespace

std::string StrikeOut(std::string_view text)
{
    std::string clean;
    while (!text.empty()) {
        const auto end = std::min(text.find('\n'), text.size());
        const std::string_view line = text.substr(0, end);
        const auto secret = SecretOf(line);
        if (secret == std::string_view::npos)
            clean += WithoutUsers(line);
        else
            clean.append(line.substr(0, secret)).append(" ").append(kStruck);
        if (end < text.size())
            clean += '\n';
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return clean;
}

}  // namespace secrets
