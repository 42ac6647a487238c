// SPDX-License-Identifier: MIT
#include "dbinterfaces/connection_text.h"

#include "dbinterfaces/database_error.h"

#include <fmt/format.h>

#include <algorithm>
#include <cctype>
#include <charconv>
#include <libpq-fe.h>
#include <map>
#include <memory>
#include <string_view>

namespace connection_text {

namespace {

constexpr std::string_view kScheme = "postgresql://";
constexpr const char* kStruckOut = "***";

/// Longest connect_timeout that is taken over, in seconds.
constexpr int kLongestConnecting = 60;
/// The tcp_user_timeout that is taken over, in milliseconds.
constexpr int kShortestAnswer = 1'000;
constexpr int kLongestAnswer = 600'000;

/// A server that does not answer must not hold up the program for minutes. How long a silent network is
/// waited for is in seconds, but for tcp_user_timeout in milliseconds.
const std::map<std::string, std::string> kDefaults{
    {"connect_timeout", "5"},     {"keepalives", "1"},       {"keepalives_idle", "5"},
    {"keepalives_interval", "2"}, {"keepalives_count", "3"}, {"tcp_user_timeout", "10000"},
};

[[noreturn]] void Refuse(const char* reason)
{
    throw DatabaseError(DatabaseError::Kind::BadConnection,
                        fmt::format("the connection text cannot be understood: {}", reason));
}

/// "dbname=plant host=..." as opposed to "user@host/plant?sslmode=require".
bool IsKeywordForm(std::string_view text)
{
    std::size_t i = text.find_first_not_of(' ');
    const std::size_t start = i;
    while (i < text.size() && (std::isalpha(static_cast<unsigned char>(text[i])) != 0 || text[i] == '_'))
        ++i;
    const std::size_t name = i;
    while (i < text.size() && text[i] == ' ')
        ++i;
    return start != std::string_view::npos && name > start && i < text.size() && text[i] == '=';
}

/// A password with such a letter in it would be taken for a host or a database, and be shown as such.
void RefuseAmbiguousUri(std::string_view uri)
{
    const std::size_t authority = uri.find_first_of("/?");
    if (std::ranges::count(uri, '@') > 1 ||
        uri.find('@', std::min(authority, uri.size())) != std::string_view::npos)
        Refuse(
            "letters such as '@', '/', ':' and '?' in a user, password or database of an address are written "
            "as "
            "%40, %2F, %3A and %3F");
}

std::map<std::string, std::string> Parse(const std::string& conninfo)
{
    char* error = nullptr;
    const std::unique_ptr<PQconninfoOption, decltype(&PQconninfoFree)> options(
        PQconninfoParse(conninfo.c_str(), &error), &PQconninfoFree);
    PQfreemem(error);  // it repeats what it did not understand
    if (!options)
        Refuse(
            "it is neither a list of known key=value pairs, with quotes around values that hold blanks, nor "
            "an address");
    std::map<std::string, std::string> values;
    for (const PQconninfoOption* option = options.get(); option->keyword != nullptr; ++option) {
        if (option->val != nullptr)
            values[option->keyword] = option->val;
    }
    return values;
}

std::string Quoted(const std::string& value)
{
    std::string quoted = "'";
    for (const char c : value) {
        if (c == '\'' || c == '\\')
            quoted += '\\';
        quoted += c;
    }
    return quoted + "'";
}

bool IsWithin(const std::string& text, int least, int most)
{
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size() && number >= least && number <= most;
}

void RefuseWrongPorts(const std::string& ports)
{
    constexpr int kHighestPort = 65535;
    for (std::size_t start = 0; start <= ports.size();) {
        const std::size_t end = std::min(ports.find(',', start), ports.size());
        if (end > start && !IsWithin(ports.substr(start, end - start), 1, kHighestPort))
            Refuse("the port is no number from 1 to 65535");
        start = end + 1;
    }
}

bool IsWordLetter(char c)
{
    return std::isalnum(static_cast<unsigned char>(c)) != 0 || static_cast<unsigned char>(c) >= 0x80;
}

/// Whether the text from `at` on is a word of its own, `size` long.
bool StandsAlone(const std::string& text, std::size_t at, std::size_t size)
{
    return (at == 0 || !IsWordLetter(text[at - 1])) &&
           (at + size == text.size() || !IsWordLetter(text[at + size]));
}

}  // namespace

Parameters Read(const std::string& text)
{
    if (text.find('\0') != std::string::npos)
        Refuse("it holds a zero byte");
    const std::string rest = text.substr(kScheme.size());
    const bool isKeywords = IsKeywordForm(rest);
    if (!isKeywords)
        RefuseAmbiguousUri(rest);
    std::map<std::string, std::string> values = Parse(isKeywords ? rest : text);
    RefuseWrongPorts(values["port"]);
    if (!IsWithin(values["connect_timeout"], 1, kLongestConnecting))
        values.erase("connect_timeout");
    if (!IsWithin(values["tcp_user_timeout"], kShortestAnswer, kLongestAnswer))
        values.erase("tcp_user_timeout");
    values.insert(kDefaults.begin(), kDefaults.end());

    Parameters parameters;
    parameters.answer = std::chrono::milliseconds(std::stoi(values["tcp_user_timeout"]));
    for (const auto& [key, value] : values) {
        if (value.empty())
            continue;
        parameters.text += fmt::format("{}{}={}", parameters.text.empty() ? "" : " ", key, Quoted(value));
        if (key == "password" || key == "sslpassword")
            parameters.secrets.push_back(value);
    }
    return parameters;
}

std::string Mask(std::string text, const std::vector<std::string>& secrets)
{
    // A short one is no secret as a part of words, and striking it out there would show it.
    constexpr std::size_t kShort = 4;
    for (const std::string& secret : secrets) {
        for (std::size_t at = text.find(secret); at != std::string::npos;) {
            const bool isSecret = secret.size() >= kShort || StandsAlone(text, at, secret.size());
            if (isSecret)
                text.replace(at, secret.size(), kStruckOut);
            at = text.find(secret, at + (isSecret ? 3 : 1));
        }
    }
    return text;
}

}  // namespace connection_text
