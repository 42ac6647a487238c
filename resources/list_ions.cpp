// SPDX-License-Identifier: MIT
// list_ions FILE: writes the rows of a water analysis as a table for the master database. Part of the build.
#include "core/ion_table.h"

#include <fstream>
#include <iostream>

namespace {

const char* NameOf(ions::IonKind kind)
{
    switch (kind) {
        case ions::IonKind::Cation:
            return "cation";
        case ions::IonKind::NamedCation:
            return "named cation";
        case ions::IonKind::EquivalentCation:
            return "equivalent cation";
        case ions::IonKind::Anion:
            return "anion";
        case ions::IonKind::NamedAnion:
            return "named anion";
        case ions::IonKind::EquivalentAnion:
            return "equivalent anion";
        case ions::IonKind::Neutral:
        case ions::IonKind::Other:
            break;
    }
    return "";
}

void Write(std::ostream& out, const auto& rows)
{
    for (const ions::Ion* ion : rows)
        out << ion->key << ',' << ion->symbol << ',' << ion->name << ',' << ion->charge << ','
            << NameOf(ion->kind) << '\n';
}

}  // namespace

int main(int argc, char** argv)
{
    std::ofstream out(argc == 2 ? argv[1] : "");
    out << "key,symbol,name,charge,kind\n";
    Write(out, ions::kCations);
    Write(out, ions::kAnions);
    if (!out.flush()) {
        std::cerr << "list_ions FILE: the file could not be written\n";
        return 1;
    }
    return 0;
}
