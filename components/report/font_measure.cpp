// SPDX-License-Identifier: MIT
#include "report/font_measure.h"

#include "report/text.h"

namespace report {

double AscentOf(const std::string& family)
{
    // Large, so that nothing is rounded.
    constexpr double kSize = 1000.0;
    const TextContext context;
    PangoFontDescription* const font = pango_font_description_new();
    pango_font_description_set_family(font, family.c_str());
    pango_font_description_set_absolute_size(font, kSize * PANGO_SCALE);
    PangoFontMetrics* const metrics = pango_context_get_metrics(context.Get(), font, nullptr);
    const double ascent = pango_font_metrics_get_ascent(metrics) / (kSize * PANGO_SCALE);
    pango_font_metrics_unref(metrics);
    pango_font_description_free(font);
    return ascent;
}

}  // namespace report
