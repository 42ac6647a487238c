// SPDX-License-Identifier: MIT
#include "gui_base/graphics/svg/svg_parser_base.h"

Affine2DMatrix::~Affine2DMatrix() = default;
SvgParserBase::Element::~Element() = default;
SvgParserBase::TextElement::~TextElement() = default;
SvgParserBase::ImageElement::~ImageElement() = default;
SvgParserBase::~SvgParserBase() = default;
