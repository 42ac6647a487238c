// SPDX-License-Identifier: MIT
#pragma once

/// Seeks the value of an input with which another value of the project becomes what the user wants: the flow
/// rate for a resin volume, the regenerant level for a capacity.
///
/// It works on copies of the project, each of which is calculated as after an edit of the user, and writes
/// the value that it found as one edit; where it finds none, the project stays as it is. One thread.

#include "projectbase/project/project.h"
#include "projectbase/projectbase_export.h"

class PROJECTBASE_EXPORT WhatIf
{
public:
    /// Remaining deviation up to which a value counts as found.
    static constexpr double kTolerance = 1e-5;
    /// Design runs at most, whatever is asked for.
    static constexpr int kMostRuns = 1000;

    /// The project is not owned.
    explicit WhatIf(Project& project) : m_project(project) {}

    /// Adjusts `toAdjust` within its limits, whole numbers in whole numbers, until `fixed` reaches `entered`
    /// (in the ISO unit of `fixed`), with `iterations` design runs at most. Where `toAdjust` follows from an
    /// input `fixed`, that input gets the value entered. Both belong to the project.
    ///
    /// Returns |reached - entered| as a share of `entered` (absolute where that is 0): infinite where nothing
    /// was found, never NaN. `ok` says whether there were values between which the one that is sought must
    /// lie. The value was found, and the project changed, if `ok` and the deviation is at most kTolerance.
    double Calculate(DetailData* toAdjust, DetailData* fixed, double entered, int iterations, bool& ok);

    /// How many designs the last search calculated.
    int GetRuns() const { return m_runs; }

private:
    struct Question
    {
        DetailAddress toAdjust;
        DetailAddress fixed;
        double entered;
    };

    /// What the two values become when one of them is typed.
    struct Answer
    {
        double toAdjust;
        double fixed;
    };
    Answer Try(const Question& question, const DetailAddress& typed, double value);
    double Adjust(const Question& question, DetailData& toAdjust, int iterations, bool& ok);
    double Enter(const Question& question, DetailData& toAdjust, DetailData& fixed, bool& ok);

    Project& m_project;
    int m_runs = 0;
};
