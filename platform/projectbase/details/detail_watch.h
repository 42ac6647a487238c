// SPDX-License-Identifier: MIT
#pragma once

/// Whoever must know of a detail before it changes: the object of a project that the detail belongs to.

class DetailData;

class DetailWatch
{
public:
    /// The detail still holds its former value and unit.
    virtual void BeforeWrite(DetailData& detail) = 0;
    /// The write that BeforeWrite announced is done.
    virtual void AfterWrite() noexcept = 0;

protected:
    DetailWatch() = default;
    ~DetailWatch() = default;
};
