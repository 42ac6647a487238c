// SPDX-License-Identifier: MIT
#pragma once

/// The project of an ion-exchange plant.

#include "projectbase/feed/feed_composition.h"
#include "projectbase/project/project.h"

namespace iex {

class PROJECTBASE_EXPORT IEXProject : public Project
{
public:
    /// A project with one water, named "Feed water", at the defaults of the catalogue.
    IEXProject();

    /// What the regeneration step in hand sends to waste, the details "step/…": unknown until the
    /// regeneration is designed.
    DetailList& GetStepDetails() { return m_stepDetails; }

    /// The compounds of the feed as the project stores them: the details of the group "feedcompound", one
    /// group for each, of concentrations only meq/l; the molar mass follows from the formula. Throws
    /// DatabaseError when the elements cannot be read.
    FeedComposition LoadFeedCompositionFromDetails() const;
    /// Stores entries, medium, density, flags and the stated pH. Equal compositions leave equal bytes.
    void SaveFeedCompositionToDetails(const FeedComposition& composition);

private:
    DetailList m_stepDetails;
};

}  // namespace iex
