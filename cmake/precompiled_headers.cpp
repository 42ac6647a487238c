// SPDX-License-Identifier: MIT
// The headers that are compiled ahead need a source that they are compiled for.
