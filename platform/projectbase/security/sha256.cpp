// SPDX-License-Identifier: MIT
#include "projectbase/security/sha256.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <fstream>
#include <sodium.h>
#include <system_error>
#include <vector>

std::string Sha256OfFile(const std::filesystem::path& path, const WorkWatch& watch)
{
    const auto size = static_cast<double>(std::max<std::uintmax_t>(std::filesystem::file_size(path), 1));
    std::ifstream file(path, std::ios::binary);
    crypto_hash_sha256_state state;
    crypto_hash_sha256_init(&state);
    std::vector<char> block(std::size_t{1} << 20);
    double read = 0.0;
    while (file.good()) {
        watch.Tell(std::min(read / size, 1.0));
        file.read(block.data(), static_cast<std::streamsize>(block.size()));
        crypto_hash_sha256_update(&state, reinterpret_cast<const unsigned char*>(block.data()),
                                  static_cast<unsigned long long>(file.gcount()));
        read += static_cast<double>(file.gcount());
    }
    if (!file.eof())
        throw std::system_error(errno, std::generic_category(), path.string());
    std::array<unsigned char, crypto_hash_sha256_BYTES> hash{};
    crypto_hash_sha256_final(&state, hash.data());
    std::array<char, 2 * crypto_hash_sha256_BYTES + 1> text{};
    return sodium_bin2hex(text.data(), text.size(), hash.data(), hash.size());
}
