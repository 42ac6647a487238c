// SPDX-License-Identifier: MIT
#pragma once

/// The project of an ion-exchange plant.

#include "projectbase/project/project.h"

namespace iex {

class PROJECTBASE_EXPORT IEXProject : public Project
{
public:
    /// A project with one water, named "Feed water", at the defaults of the catalogue.
    IEXProject();
};

}  // namespace iex
