// SPDX-License-Identifier: MIT
#include "wxcurl/curl_http.h"

#include <curl/curl.h>

wxCurlHTTP::~wxCurlHTTP() = default;

bool wxCurlHTTP::Get(wxOutputStream& answer, int redirects)
{
    return Run(answer, false, true, redirects);
}

bool wxCurlHTTP::GetFile(wxOutputStream& file)
{
    return Run(file, false, false, kRedirects);
}

bool wxCurlHTTP::Post(wxOutputStream& answer)
{
    return Run(answer, true, true, kRedirects);
}

bool wxCurlHTTP::PostFile(wxOutputStream& file)
{
    return Run(file, true, false, kRedirects);
}

bool wxCurlHTTP::Run(wxOutputStream& answer, bool isPost, bool inMemory, long redirects)
{
    m_isPost = isPost;
    return Perform(answer, inMemory, redirects);
}

void wxCurlHTTP::DoSetOptions(void* curl)
{
    if (!m_isPost)
        return;
    curl_mime* form = curl_mime_init(curl);
    for (const auto& [name, value] : m_fields) {
        curl_mimepart* part = curl_mime_addpart(form);
        const std::string text = value.utf8_string();
        curl_mime_name(part, name.utf8_string().c_str());
        curl_mime_data(part, text.data(), text.size());
    }
    m_form = form;
    curl_easy_setopt(curl, CURLOPT_MIMEPOST, form);
}

void wxCurlHTTP::DoClearOptions()
{
    curl_mime_free(static_cast<curl_mime*>(std::exchange(m_form, nullptr)));
}
