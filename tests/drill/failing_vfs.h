// SPDX-License-Identifier: MIT
#pragma once

namespace drill {

/// From now on SQLite works through files of which a write, a sync or a change of length can be made to fail.
/// Called before the first database is opened.
void UseFailingDisk();

/// The n-th such call from now on fails, and all later ones with it; 0: none.
void FailDiskCall(int number);
/// How many there were since.
int DiskCalls();

}  // namespace drill
