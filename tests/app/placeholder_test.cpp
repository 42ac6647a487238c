// SPDX-License-Identifier: MIT
#include "tests/support/gui_test.h"
