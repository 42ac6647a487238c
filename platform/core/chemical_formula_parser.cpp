// SPDX-License-Identifier: MIT
#include "core/chemical_formula_parser.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>
#include <re2/re2.h>
#include <stdexcept>

namespace {

enum class TokenKind
{
    Symbol,
    Open,
    Close,
    Separator,
    Text
};

struct Token
{
    TokenKind kind = TokenKind::Text;
    std::size_t position = 0;
    std::string_view text;   ///< the whole of it
    std::string_view count;  ///< its digits; empty where there are none
    std::size_t partner = kNoPartner;

    static constexpr std::size_t kNoPartner = static_cast<std::size_t>(-1);
};

/// A symbol, a parenthesis or what separates the parts of a hydrate, and the digits behind it; byte by byte,
/// so that text of any encoding can be taken apart. No two alternatives begin alike: that keeps it fast.
const RE2& Syntax()
{
    static const RE2 syntax("([A-Z][a-z]?|[()]|\xC2\xB7|\xE2\x80\xA2|\xE2\x8B\x85|[*.])(\\d*)", RE2::Latin1);
    return syntax;
}

TokenKind KindOf(std::string_view text)
{
    switch (text.front()) {
        case '(':
            return TokenKind::Open;
        case ')':
            return TokenKind::Close;
        default:
            return text.front() >= 'A' && text.front() <= 'Z' ? TokenKind::Symbol : TokenKind::Separator;
    }
}

bool HasChargeSign(std::string_view formula)
{
    static const RE2 sign("[+\\-]", RE2::Latin1);
    return RE2::PartialMatch(re2::StringPiece(formula.data(), formula.size()), sign);
}

std::string_view View(const re2::StringPiece& piece)
{
    return {piece.data(), piece.size()};
}

/// Pairs the parentheses; those without a partner stay without.
void PairGroups(std::vector<Token>& tokens)
{
    std::vector<std::size_t> open;
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        if (tokens[i].kind == TokenKind::Open) {
            open.push_back(i);
        } else if (tokens[i].kind == TokenKind::Close && !open.empty()) {
            tokens[i].partner = open.back();
            tokens[open.back()].partner = i;
            open.pop_back();
        }
    }
}

std::vector<Token> Tokenize(std::string_view formula)
{
    std::vector<Token> tokens;
    re2::StringPiece rest(formula.data(), formula.size());
    re2::StringPiece text;
    re2::StringPiece count;
    while (!rest.empty()) {
        const std::size_t position = formula.size() - rest.size();
        if (!RE2::Consume(&rest, Syntax(), &text, &count)) {
            tokens.push_back({TokenKind::Text, position, formula.substr(position, 1), {}});
            rest.remove_prefix(1);
            continue;
        }
        tokens.push_back({KindOf(View(text)), position, View(text), View(count)});
        // Nothing is counted in front of a group; the digits behind "(" stand for themselves.
        if (tokens.back().kind == TokenKind::Open && !count.empty()) {
            tokens.back().count = {};
            for (std::size_t i = position + 1; i < formula.size() - rest.size(); ++i)
                tokens.push_back({TokenKind::Text, i, formula.substr(i, 1), {}});
        }
    }
    PairGroups(tokens);
    return tokens;
}

/// The count that digits state, 1 where there are none; nothing when it is too large.
std::optional<int> ReadCount(std::string_view digits)
{
    int count = 1;
    if (digits.empty())
        return count;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), count);
    if (result.ec == std::errc::result_out_of_range)
        return std::nullopt;
    if (result.ec != std::errc() || result.ptr != digits.data() + digits.size())
        throw std::invalid_argument("invalid stoi argument");
    return count;
}

[[noreturn]] void CountOutOfRange()
{
    throw std::out_of_range("stoi argument out of range");
}

int RequireCount(std::string_view digits)
{
    const auto count = ReadCount(digits);
    return count ? *count : (CountOutOfRange(), 0);
}

/// A product that stays what it is once it exceeds an int: only an element that is counted by it is too many.
constexpr std::int64_t kTooMany = std::int64_t{1} << 31;

std::int64_t Times(std::int64_t a, std::int64_t b)
{
    return a == 0 || b == 0 ? 0 : std::min(kTooMany, a >= kTooMany || b >= kTooMany ? kTooMany : a * b);
}

/// By how much the tokens that follow are multiplied: by all groups around them and by their part of a
/// hydrate.
class Multipliers
{
public:
    void Open(int groupCount) { m_levels.push_back({Current(), groupCount, 1}); }
    void Close()
    {
        if (m_levels.size() > 1)
            m_levels.pop_back();
    }
    void BeginPart(int count) { m_levels.back().part = count; }
    std::int64_t Current() const
    {
        const Level& level = m_levels.back();
        return Times(Times(level.outside, level.group), level.part);
    }

private:
    struct Level
    {
        std::int64_t outside = 1;
        int group = 1;
        int part = 1;
    };
    std::vector<Level> m_levels{Level{}};
};

/// Collects elements, each at the place of its first appearance.
class Collection
{
public:
    explicit Collection(const std::unordered_map<std::string, CompoundElement>& known) : m_known(known) {}

    void Add(std::string_view symbol, std::int64_t count)
    {
        const auto [place, isNew] = m_places.try_emplace(std::string(symbol), m_elements.size());
        if (isNew) {
            const auto found = m_known.find(place->first);
            m_elements.push_back(found != m_known.end() ? found->second : CompoundElement());
            m_elements.back().count = 0;
        }
        CompoundElement& element = m_elements[place->second];
        const std::int64_t sum = element.count + count;
        if (sum > std::numeric_limits<int>::max())
            CountOutOfRange();
        element.count = static_cast<int>(sum);
    }
    std::vector<CompoundElement> Take() { return std::move(m_elements); }

private:
    const std::unordered_map<std::string, CompoundElement>& m_known;
    std::unordered_map<std::string, std::size_t> m_places;
    std::vector<CompoundElement> m_elements;
};

/// Collects faults, neighbouring bytes of one kind as one.
void AddFault(std::vector<FormulaFault>& faults, FormulaFault::Kind kind, std::size_t position,
              std::size_t length)
{
    if (!faults.empty() && kind == FormulaFault::Kind::Text && faults.back().kind == kind &&
        faults.back().position + faults.back().length == position)
        faults.back().length += length;
    else
        faults.push_back({kind, position, length});
}

/// Zero or too large.
bool IsBadCount(std::string_view digits)
{
    return ReadCount(digits).value_or(0) == 0;
}

}  // namespace

ChemicalFormulaParser::ChemicalFormulaParser(std::span<const CompoundElement> elements)
{
    for (const CompoundElement& element : elements)
        m_elements.emplace(element.symbol, element);
}

std::vector<CompoundElement> ChemicalFormulaParser::Parse(std::string_view formula) const
{
    if (HasChargeSign(formula))
        return {};
    const std::vector<Token> tokens = Tokenize(formula);
    Multipliers multipliers;
    Collection collection(m_elements);
    for (const Token& token : tokens) {
        switch (token.kind) {
            case TokenKind::Symbol:
                collection.Add(token.text, Times(multipliers.Current(), RequireCount(token.count)));
                break;
            case TokenKind::Open:
                if (token.partner != Token::kNoPartner)
                    multipliers.Open(RequireCount(tokens[token.partner].count));
                break;
            case TokenKind::Close:
                if (token.partner != Token::kNoPartner)
                    multipliers.Close();
                break;
            case TokenKind::Separator:
                multipliers.BeginPart(RequireCount(token.count));
                break;
            case TokenKind::Text:
                break;
        }
    }
    return collection.Take();
}

std::vector<FormulaFault> ChemicalFormulaParser::FindFaults(std::string_view formula) const
{
    using Kind = FormulaFault::Kind;
    const std::vector<Token> tokens = Tokenize(formula);
    std::vector<FormulaFault> faults;
    bool overflow = true;
    try {
        Parse(formula);
        overflow = false;
    } catch (const std::out_of_range&) {
    }
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        const Token& token = tokens[i];
        const std::size_t end = token.position + token.text.size();
        const bool alone = token.partner == Token::kNoPartner;
        if (token.kind == TokenKind::Text)
            AddFault(faults, token.text == "+" || token.text == "-" ? Kind::Charge : Kind::Text,
                     token.position, 1);
        else if (token.kind == TokenKind::Symbol && !m_elements.contains(std::string(token.text)))
            AddFault(faults, Kind::UnknownElement, token.position, token.text.size());
        else if ((token.kind == TokenKind::Open || token.kind == TokenKind::Close) &&
                 (alone || token.partner == i + 1 || token.partner + 1 == i))
            AddFault(faults, Kind::Group, token.position, 1);
        else if (token.kind == TokenKind::Separator && (i == 0 || i + 1 == tokens.size()))
            AddFault(faults, Kind::Text, token.position, token.text.size());
        if (IsBadCount(token.count))
            AddFault(faults, Kind::Count, end, token.count.size());
    }
    // Each count fits, their products or sums do not.
    if (overflow && std::none_of(faults.begin(), faults.end(),
                                 [](const FormulaFault& fault) { return fault.kind == Kind::Count; }))
        faults.push_back({Kind::Count, 0, formula.size()});
    return faults;
}

namespace formula {

double MolarMass(std::span<const CompoundElement> elements)
{
    double sum = elements.empty() ? std::nan("") : 0.0;
    for (const CompoundElement& element : elements)
        sum += element.count * element.atomicMass;
    return sum;
}

double WeightPercent(std::span<const CompoundElement> elements, std::string_view symbol)
{
    const auto found =
        std::find_if(elements.begin(), elements.end(),
                     [symbol](const CompoundElement& element) { return element.symbol == symbol; });
    const double mass = MolarMass(elements);
    if (found == elements.end() || !(mass > 0.0))
        return std::nan("");
    return found->count * found->atomicMass / mass * 100.0;
}

AcidConstants ConstantsOfPka(double pKa)
{
    const double pKb = 14.0 - pKa;
    return {std::pow(10.0, -pKa), pKb, std::pow(10.0, -pKb)};
}

}  // namespace formula
