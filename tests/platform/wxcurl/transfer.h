// SPDX-License-Identifier: MIT
#pragma once

/// What became of one transfer, in one value.

#include "wxcurl/curl_http.h"

#include <wx/mstream.h>

#include <chrono>
#include <string>

struct Transfer
{
    bool ok = false;
    long code = 0;
    std::string text;
    std::string error;  ///< short and detailed, with a blank between
    double seconds = 0.0;
};

inline std::string TextOf(const wxMemoryOutputStream& stream)
{
    std::string text(stream.GetSize(), '\0');
    stream.CopyTo(text.data(), text.size());
    return text;
}

inline Transfer Get(wxCurlHTTP& session)
{
    const auto begun = std::chrono::steady_clock::now();
    wxMemoryOutputStream stream;
    Transfer result;
    result.ok = session.Get(stream);
    result.code = session.GetResponseCode();
    result.text = TextOf(stream);
    result.error =
        session.GetErrorString().utf8_string() + " " + session.GetDetailedErrorString().utf8_string();
    result.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - begun).count();
    return result;
}

inline Transfer Get(const std::string& url, const wxCurlBounds& bounds = {})
{
    wxCurlHTTP session(wxString::FromUTF8(url));
    session.SetBounds(bounds);
    return Get(session);
}
