// SPDX-License-Identifier: MIT
#include "projectbase/design/exchanger_label.h"

#include <wx/translation.h>

#include <algorithm>
#include <array>

namespace design {

namespace {

struct Kind
{
    std::string_view key;
    const char* label;
};
constexpr std::array kKinds{
    Kind{"SAC_NA", wxTRANSLATE("Softener")},
    Kind{"SAC_H", wxTRANSLATE("Strong-acid cation exchanger")},
    Kind{"WAC_H", wxTRANSLATE("Weak-acid cation exchanger")},
    Kind{"WBA", wxTRANSLATE("Weak-base anion exchanger")},
    Kind{"SBA", wxTRANSLATE("Strong-base anion exchanger")},
    Kind{"MB", wxTRANSLATE("Mixed bed")},
    Kind{"DEGAS", wxTRANSLATE("Degasser")},
};

}  // namespace

const char* ExchangerLabel(std::string_view kind)
{
    const auto found = std::ranges::find(kKinds, kind, &Kind::key);
    return found != kKinds.end() ? found->label : wxTRANSLATE("Exchanger");
}

}  // namespace design
