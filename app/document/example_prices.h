// SPDX-License-Identifier: MIT
#pragma once

namespace iex {
class IEXProject;
}  // namespace iex

namespace app {

/// Gives the lines of the project's costs prices of the right order of magnitude, in euro, for examples: an
/// offer replaces them. Says so in the project's comments. To be called when the plant is designed.
void SetExamplePrices(iex::IEXProject& project);

}  // namespace app
