// SPDX-License-Identifier: MIT
#pragma once

/// What a program shows while a call waits for a server.
///
/// The calls of the thread that sets it run on another thread meanwhile, so that the indicator can keep
/// windows alive. Whoever calls the user database from there, while a call waits, gets an error (Locked).

#include "dbinterfaces/dbinterfaces_export.h"

#include <functional>
#include <memory>

class DBINTERFACES_EXPORT WaitIndicator
{
public:
    virtual ~WaitIndicator();
    /// Asked about ten times a second; false gives up the call.
    virtual bool Continue() = 0;
};

/// Makes an indicator for a call that has waited for half a second. It ends with the call.
using MakeWaitIndicator = std::function<std::unique_ptr<WaitIndicator>()>;
