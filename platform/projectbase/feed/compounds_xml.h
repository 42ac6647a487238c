// SPDX-License-Identifier: MIT
#pragma once

/// Reading the document of an exchange file. Internal to the exchange files.

#include <wx/xml/xml.h>

#include <memory>
#include <string>

/// The document of a text that is a list of compounds: a root and the elements in it with their attributes.
/// They are looked at as they come, so that memory and time grow with the length of the text only; the first
/// thing that does not belong there ends the reading before anything is kept. Throws CompoundFileError, which
/// says where.
std::unique_ptr<wxXmlDocument> ReadCompoundsXml(const std::string& xml);
