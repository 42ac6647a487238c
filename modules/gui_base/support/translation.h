// SPDX-License-Identifier: MIT
#pragma once

/// Controls keep their texts in the source language and look the translation up whenever they show one, so
/// that switching the language back and forth never translates a translated text.

#include "gui_base/gui_base_export.h"

#include <wx/string.h>

namespace i18n {

/// Translation of `source` in the default domain, or `source` itself without a catalogue or an entry.
GUI_BASE_EXPORT wxString Translated(const wxString& source);
/// The same for a source text that is a UTF-8 literal.
GUI_BASE_EXPORT wxString Translated(const char* utf8Source);

/// What stands between a label and its value: a colon, with a blank before it where the language has one.
GUI_BASE_EXPORT wxString Colon();
/// `label` with what stands behind it; a colon at the end of that is the one of the language.
GUI_BASE_EXPORT wxString WithSuffix(const wxString& label, const wxString& suffix);
/// `label` without the colon at its end, if it has one, and without the blank before that.
GUI_BASE_EXPORT wxString WithoutColon(const wxString& label);

/// The language of the texts, "de" or "de_AT"; empty without a catalogue.
GUI_BASE_EXPORT wxString TextLanguage();

}  // namespace i18n
