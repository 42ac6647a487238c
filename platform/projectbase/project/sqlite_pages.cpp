// SPDX-License-Identifier: MIT
#include "projectbase/project/sqlite_pages.h"

#include <fmt/format.h>

#include <array>
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <vector>

namespace {

/// SQLite itself goes no deeper.
constexpr int kMostDepth = 20;
constexpr std::size_t kFileHeader = 100;
constexpr std::size_t kOverflowLink = 4;
/// A project has ten tables; each is parsed and kept by SQLite.
constexpr std::size_t kMostSchemaRows = 1'000;
constexpr std::size_t kMostSchemaBytes = std::size_t{1} << 20;

enum PageKind : unsigned
{
    kInnerIndex = 2,
    kInnerTable = 5,
    kLeafIndex = 10,
    kLeafTable = 13,
};

struct Problem : std::runtime_error
{
    using std::runtime_error::runtime_error;
};

/// Big-endian number of `size` bytes.
std::uint32_t Number(std::string_view bytes, std::size_t at, std::size_t size)
{
    if (at + size > bytes.size())
        throw Problem("a page ends too early");
    std::uint32_t number = 0;
    for (std::size_t i = 0; i < size; ++i)
        number = number << 8 | static_cast<unsigned char>(bytes[at + i]);
    return number;
}

/// A number of one to nine bytes, behind which `at` stands then.
std::uint64_t Varint(std::string_view bytes, std::size_t& at)
{
    std::uint64_t number = 0;
    for (int i = 0; i < 9; ++i) {
        const std::uint32_t byte = Number(bytes, at++, 1);
        if (i == 8)
            return number << 8 | byte;
        number = number << 7 | (byte & 0x7fU);
        if ((byte & 0x80U) == 0)
            break;
    }
    return number;
}

/// How many bytes a value of a record takes; 0 also for what it has no bytes for.
std::uint64_t SizeOfSerialType(std::uint64_t type)
{
    constexpr std::array<std::uint64_t, 12> kNumbers{0, 1, 2, 3, 4, 6, 8, 8, 0, 0, 0, 0};
    return type < kNumbers.size() ? kNumbers.at(type) : (type - kNumbers.size()) / 2;
}

/// The first page of the tree that a row of the schema names; nothing where the row names none.
std::optional<std::uint32_t> RootOf(std::string_view row)
{
    constexpr int kColumnsBefore = 3;  // type, name, table
    std::size_t at = 0;
    const std::size_t header = Varint(row, at);
    std::uint64_t value = header;
    for (int column = 0; column < kColumnsBefore; ++column)
        value += SizeOfSerialType(Varint(row, at));
    const std::uint64_t type = Varint(row, at);
    const std::uint64_t size = SizeOfSerialType(type);
    if (at > header || value > row.size() || size > 4)
        throw Problem("a row of its schema cannot be read");
    const std::uint32_t root = Number(row, value, size);
    if (type == 9)  // the number one, as a type of its own
        throw Problem("a page is used twice");
    return root == 0 ? std::nullopt : std::optional(root);
}

class Pages
{
public:
    explicit Pages(std::string_view bytes) : m_bytes(bytes)
    {
        constexpr std::size_t kPageSize = 16;
        constexpr std::size_t kReserved = 20;
        m_size = Number(bytes, kPageSize, 2) == 1 ? 65536 : Number(bytes, kPageSize, 2);
        const std::size_t reserved = Number(bytes, kReserved, 1);
        if (m_size < 512 || (m_size & (m_size - 1)) != 0 || m_size - reserved < 480)
            throw Problem("it has no proper page size");
        m_usable = m_size - reserved;
        m_used.resize(bytes.size() / m_size + 1);
    }

    void Check()
    {
        std::vector<std::uint32_t> roots;
        std::size_t rows = 0;
        CheckTree(1, [&](std::string_view row) {
            if (++rows > kMostSchemaRows || m_taken * m_size > kMostSchemaBytes)
                throw Problem("its schema is too large");
            if (const auto root = RootOf(row))
                roots.push_back(*root);
        });
        for (const std::uint32_t root : roots)
            CheckTree(root, [](std::string_view) {});
    }

private:
    /// The bytes of a page, which is used up with it.
    std::string_view Take(std::uint32_t page)
    {
        if (page == 0 || page >= m_used.size())
            throw Problem(fmt::format("there is no page {}", page));
        if (m_used[page])
            throw Problem(fmt::format("page {} is used twice", page));
        m_used[page] = true;
        ++m_taken;
        return m_bytes.substr((page - std::size_t{1}) * m_size, m_usable);
    }

    void TakeOverflow(std::uint32_t first, std::uint64_t bytes)
    {
        const std::uint64_t each = m_usable - kOverflowLink;
        std::uint32_t page = first;
        for (std::uint64_t left = bytes; left > 0; left -= std::min(left, each))
            page = Number(Take(page), 0, kOverflowLink);
    }

    /// Calls `takeRow` with what the leaves hold of their rows in their own page.
    template <typename TakeRow>
    void CheckTree(std::uint32_t root, TakeRow takeRow)
    {
        struct Branch
        {
            std::uint32_t page;
            int depth;
        };
        std::vector<Branch> branches{{root, 1}};
        while (!branches.empty()) {
            const Branch branch = branches.back();
            branches.pop_back();
            if (branch.depth > kMostDepth)
                throw Problem("a tree of pages is too deep");
            CheckPage(branch.page, takeRow, [&](std::uint32_t child) {
                branches.push_back({child, branch.depth + 1});
            });
        }
    }

    template <typename TakeRow, typename TakeChild>
    void CheckPage(std::uint32_t number, TakeRow& takeRow, TakeChild takeChild)
    {
        const std::string_view page = Take(number);
        const std::size_t header = number == 1 ? kFileHeader : 0;
        const std::uint32_t kind = Number(page, header, 1);
        const bool isLeaf = kind == kLeafIndex || kind == kLeafTable;
        if (!isLeaf && kind != kInnerIndex && kind != kInnerTable)
            throw Problem(fmt::format("page {} is none of a table", number));
        const std::size_t cells = Number(page, header + 3, 2);
        const std::size_t pointers = header + (isLeaf ? 8 : 12);
        std::size_t held = pointers + 2 * cells;
        for (std::size_t i = 0; i < cells; ++i) {
            const std::size_t start = Number(page, pointers + 2 * i, 2);
            std::size_t at = start;
            if (!isLeaf) {
                takeChild(Number(page, at, 4));
                at += 4;
            }
            if (kind == kInnerTable)
                Varint(page, at);
            else
                at = BehindPayload(page, at, kind, takeRow);
            held += at - start;
        }
        // The same cell twice, or cells one in the other, are read as often as they are named.
        if (held > page.size())
            throw Problem(fmt::format("page {} names more than it holds", number));
        if (!isLeaf)
            takeChild(Number(page, header + 8, 4));
    }

    /// The place behind a cell that holds a row, or the beginning of one.
    template <typename TakeRow>
    std::size_t BehindPayload(std::string_view page, std::size_t at, std::uint32_t kind, TakeRow& takeRow)
    {
        const std::uint64_t size = Varint(page, at);
        if (kind == kLeafTable)
            Varint(page, at);  // its number
        if (size > m_bytes.size())
            throw Problem("a row is larger than the file");
        const std::uint64_t most = kind == kLeafTable ? m_usable - 35 : (m_usable - 12) * 64 / 255 - 23;
        const std::uint64_t least = (m_usable - 12) * 32 / 255 - 23;
        std::uint64_t local = size;
        if (size > most) {
            local = least + (size - least) % (m_usable - kOverflowLink);
            local = local <= most ? local : least;
            TakeOverflow(Number(page, at + local, kOverflowLink), size - local);
        }
        if (at + local > page.size())
            throw Problem("a row ends behind its page");
        takeRow(page.substr(at, local));
        return at + local + (size > most ? kOverflowLink : 0);
    }

    std::string_view m_bytes;
    std::size_t m_size = 0;
    std::size_t m_usable = 0;
    std::vector<bool> m_used;
    std::size_t m_taken = 0;
};

}  // namespace

std::string FindPageProblem(std::string_view bytes)
{
    try {
        Pages(bytes).Check();
        return {};
    } catch (const Problem& problem) {
        return problem.what();
    }
}
