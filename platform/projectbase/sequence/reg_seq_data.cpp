// SPDX-License-Identifier: MIT
#include "projectbase/sequence/reg_seq_data.h"

#include <array>
#include <stdexcept>
#include <string>

namespace {

using sequence::RowQuantities;

struct Quantity
{
    std::string_view name;
    double RowQuantities::*value;
    bool isFlow;
};
constexpr std::array kQuantities{
    Quantity{"v", &RowQuantities::v, true},      Quantity{"q", &RowQuantities::q, true},
    Quantity{"q.bv", &RowQuantities::qBv, true}, Quantity{"t", &RowQuantities::t, false},
    Quantity{"vol", &RowQuantities::vol, false}, Quantity{"vol.bv", &RowQuantities::volBv, false},
};

const Quantity& Find(std::string_view name)
{
    for (const Quantity& quantity : kQuantities) {
        if (quantity.name == name)
            return quantity;
    }
    throw std::invalid_argument("RegSeqStep: there is no quantity '" + std::string(name) + "'");
}

}  // namespace

void RegSeqStep::Type(std::string_view quantity, double value)
{
    const Quantity& found = Find(quantity);
    values.*found.value = value;
    (found.isFlow ? flowTyped : amountTyped) = quantity;
    const sequence::Type* const kind = sequence::FindType(type);
    // Its dose settles the volume of a chemical: a flow leaves the time to follow.
    if (found.isFlow && kind != nullptr && kind->rowClass == "chemical")
        amountTyped = "vol";
}

double RegSeqStep::Get(std::string_view quantity) const
{
    return values.*Find(quantity).value;
}
