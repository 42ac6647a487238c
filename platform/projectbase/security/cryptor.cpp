// SPDX-License-Identifier: MIT
#include "projectbase/security/cryptor.h"

#include "tncommon/atomic_file.h"
#include "tncommon/user_dirs.h"

#include <array>
#include <filesystem>
#include <optional>
#include <sodium.h>
#include <stdexcept>
#include <string>
#include <system_error>
#include <vector>

namespace {

namespace fs = std::filesystem;

using Key = std::array<unsigned char, crypto_secretbox_KEYBYTES>;
using Bytes = std::vector<unsigned char>;

constexpr const char* kFile = "secrets.key";
/// Before the encoded bytes: how they were made.
constexpr const char* kVersion = "s1:";
constexpr int kEncoding = sodium_base64_VARIANT_ORIGINAL;

std::optional<Key> ReadKey(const fs::path& path)
{
    std::string bytes;
    try {
        bytes = tncommon::ReadWholeFile(path, 4096);
    } catch (const std::system_error& error) {
        if (error.code() == std::errc::no_such_file_or_directory)
            return std::nullopt;
        throw;
    }
    Key key{};
    if (bytes.size() != key.size())
        return std::nullopt;
    std::copy(bytes.begin(), bytes.end(), key.begin());
    sodium_memzero(bytes.data(), bytes.size());
    return key;
}

/// Makes a key; the one of another program that makes one at the same time counts for both.
Key MakeKey(const fs::path& path)
{
    std::string bytes(crypto_secretbox_KEYBYTES, '\0');
    randombytes_buf(bytes.data(), bytes.size());
    fs::path own = path;
    own += "." + std::to_string(randombytes_random());
    tncommon::ReplaceFile(own, bytes, tncommon::FileSystem::Native(), tncommon::Audience::OwnerOnly);
    std::error_code failed;
    fs::create_hard_link(own, path, failed);
    // What is there and is no key, a crash or somebody else left: nothing was encrypted with it.
    if (failed && !ReadKey(path))
        fs::rename(own, path);
    else
        fs::remove(own);
    const auto key = ReadKey(path);
    if (!key)
        throw std::runtime_error("Cryptor::MakeKey: the key cannot be read back");
    return *key;
}

void Start()
{
    if (sodium_init() < 0)
        throw std::runtime_error("Cryptor::Start: there is no source of random numbers");
}

fs::path KeyPath()
{
    return tncommon::UserDataDir() / kFile;
}

Bytes Decoded(const std::string& text)
{
    // One more than needed, so that there is a place to write to.
    Bytes bytes(text.size() + 1);
    std::size_t count = 0;
    if (sodium_base642bin(bytes.data(), bytes.size(), text.data(), text.size(), nullptr, &count, nullptr,
                          kEncoding) != 0)
        count = 0;
    bytes.resize(count);
    return bytes;
}

wxString Opened(const Bytes& box, const Key& key)
{
    constexpr std::size_t kHead = crypto_secretbox_NONCEBYTES + crypto_secretbox_MACBYTES;
    if (box.size() < kHead)
        return {};
    std::string plain(box.size() - kHead, '\0');
    if (crypto_secretbox_open_easy(reinterpret_cast<unsigned char*>(plain.data()),
                                   box.data() + crypto_secretbox_NONCEBYTES,
                                   box.size() - crypto_secretbox_NONCEBYTES, box.data(), key.data()) != 0)
        return {};
    const wxString text = wxString::FromUTF8(plain);
    sodium_memzero(plain.data(), plain.size());
    return text;
}

}  // namespace

wxString Cryptor::EncryptString(const wxString& plain)
{
    if (plain.empty())
        return {};
    Start();
    const fs::path path = KeyPath();
    fs::create_directories(path.parent_path());
    auto known = ReadKey(path);
    const Key key = known ? *known : MakeKey(path);
    std::string text = plain.utf8_string();
    Bytes box(crypto_secretbox_NONCEBYTES + crypto_secretbox_MACBYTES + text.size());
    randombytes_buf(box.data(), crypto_secretbox_NONCEBYTES);
    crypto_secretbox_easy(box.data() + crypto_secretbox_NONCEBYTES,
                          reinterpret_cast<const unsigned char*>(text.data()), text.size(), box.data(),
                          key.data());
    sodium_memzero(text.data(), text.size());
    std::string encoded(sodium_base64_ENCODED_LEN(box.size(), kEncoding), '\0');
    sodium_bin2base64(encoded.data(), encoded.size(), box.data(), box.size(), kEncoding);
    encoded.pop_back();  // its end mark
    return kVersion + encoded;
}

wxString Cryptor::DecryptString(const wxString& encrypted) noexcept
{
    wxString encoded;
    try {
        if (!encrypted.StartsWith(kVersion, &encoded))
            return {};
        Start();
        const auto key = ReadKey(KeyPath());
        return key ? Opened(Decoded(encoded.utf8_string()), *key) : wxString();
    } catch (const std::exception&) {
        // As good as a secret of somebody else.
        return {};
    }
}
