// SPDX-License-Identifier: MIT
#pragma once

#include "wxcurl/curl_base.h"

#include <utility>
#include <vector>

/// Requests over HTTP and HTTPS.
class WXCURL_EXPORT wxCurlHTTP : public wxCurlBase
{
public:
    static constexpr int kRedirects = 5;

    explicit wxCurlHTTP(const wxString& url) : wxCurlBase(url) {}
    ~wxCurlHTTP() override;

    /// Writes the answer, bounded by wxCurlBounds::answer, and follows at most so many redirects. Whether an
    /// answer came as a whole: what it is, its code says.
    bool Get(wxOutputStream& answer, int redirects = kRedirects);
    /// The same without a bound of its size, for files.
    bool GetFile(wxOutputStream& file);

    /// A field of the form that Post sends.
    void AddFormField(const wxString& name, const wxString& value) { m_fields.emplace_back(name, value); }
    /// Sends the form; the answer as for Get.
    bool Post(wxOutputStream& answer);
    bool PostFile(wxOutputStream& file);
    /// The one of both that the form asks for.
    bool LoadFile(wxOutputStream& file) { return m_fields.empty() ? GetFile(file) : PostFile(file); }

protected:
    void DoSetOptions(void* curl) override;
    void DoClearOptions() override;

private:
    bool Run(wxOutputStream& answer, bool isPost, bool inMemory, long redirects);

    std::vector<std::pair<wxString, wxString>> m_fields;
    bool m_isPost = false;
    void* m_form = nullptr;
};
