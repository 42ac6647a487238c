// SPDX-License-Identifier: MIT
#pragma once

/// Whoever must know of a detail before it changes: the object of a project that the detail belongs to.

class DetailData;
class DetailList;

class DetailWatch
{
public:
    /// Writes follow, until the matching EndEdit.
    virtual void BeginEdit() = 0;
    virtual void EndEdit() noexcept = 0;
    /// The detail still holds its former value and unit. Within an edit.
    virtual void BeforeWrite(DetailData& detail) = 0;

protected:
    DetailWatch() = default;
    ~DetailWatch() = default;
};
