// SPDX-License-Identifier: MIT
#pragma once

/// The pictures of the check boxes, 16 × 16. One that cannot be checked is grey.

#include <wx/bitmap.h>

#include <array>
#include <vector>

namespace checktree {

using Rows = std::array<const char*, 16>;

// '#' border, '.' inside, 'x' mark.
inline constexpr Rows kUnchecked{
    "                ", " ############## ", " #............# ", " #............# ",
    " #............# ", " #............# ", " #............# ", " #............# ",
    " #............# ", " #............# ", " #............# ", " #............# ",
    " #............# ", " #............# ", " ############## ", "                ",
};
inline constexpr Rows kChecked{
    "                ", " ############## ", " #............# ", " #..........x.# ",
    " #.........xx.# ", " #........xxx.# ", " #.x.....xxx..# ", " #.xx...xxx...# ",
    " #.xxx.xxx....# ", " #..xxxxx.....# ", " #...xxx......# ", " #....x.......# ",
    " #............# ", " #............# ", " ############## ", "                ",
};
inline constexpr Rows kPartial{
    "                ", " ############## ", " #............# ", " #............# ",
    " #............# ", " #..xxxxxxxx..# ", " #..xxxxxxxx..# ", " #..xxxxxxxx..# ",
    " #..xxxxxxxx..# ", " #..xxxxxxxx..# ", " #..xxxxxxxx..# ", " #............# ",
    " #............# ", " #............# ", " ############## ", "                ",
};
inline constexpr Rows kNoBox{
    "                ", "                ", "                ", "                ",
    "                ", "                ", "                ", "                ",
    "                ", "                ", "                ", "                ",
    "                ", "                ", "                ", "                ",
};

using Palette = std::array<const char*, 4>;
inline constexpr Palette kEnabled{"  c None", "# c #4E5861", ". c #FFFFFF", "x c #1B6CA8"};
/// White boxes would be brighter than anything else in a dark theme.
inline constexpr Palette kEnabledDark{"  c None", "# c #A4ADB5", ". c #26292B", "x c #6CB4EE"};
inline constexpr Palette kDisabledDark{"  c None", "# c #62696F", ". c #3C4145", "x c #8A9299"};
inline constexpr Palette kDisabled{"  c None", "# c #8A9299", ". c #A9B1B7", "x c #5F6870"};

inline wxBitmap Picture(const Rows& rows, const Palette& palette)
{
    std::vector<const char*> xpm{"16 16 4 1"};
    xpm.insert(xpm.end(), palette.begin(), palette.end());
    xpm.insert(xpm.end(), rows.begin(), rows.end());
    return wxBitmap(xpm.data());
}

}  // namespace checktree
