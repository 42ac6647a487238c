// SPDX-License-Identifier: MIT
#include "tncommon/text_replace_mapping.h"

TextReplaceMapping::~TextReplaceMapping() = default;
