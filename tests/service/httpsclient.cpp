// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#include "httpsclient.h"

#include <utility>

namespace {

struct Sink {
    std::string *text;
    std::size_t greatest;
};

std::size_t keep(char *bytes, std::size_t size, std::size_t count, void *to)
{
    auto *sink = static_cast<Sink *>(to);
    sink->text->append(bytes, size * count);
    return sink->text->size() <= sink->greatest ? size * count : 0;
}

} // namespace

HttpsClient::HttpsClient(int port, std::string authorityFile)
    : port_(port)
    , authorityFile_(std::move(authorityFile))
    , handle_(curl_easy_init())
{
}

HttpsReply HttpsClient::post(const std::string &body)
{
    curl_slist *headers = curl_slist_append(nullptr, ("Content-Type: " + contentType).c_str());
    headers = curl_slist_append(headers, extraHeader.empty() ? "Expect:" : extraHeader.c_str());
    curl_easy_setopt(handle_.get(), CURLOPT_POSTFIELDSIZE, static_cast<long>(body.size()));
    curl_easy_setopt(handle_.get(), CURLOPT_COPYPOSTFIELDS, body.c_str());
    return perform(headers);
}

HttpsReply HttpsClient::get()
{
    curl_easy_setopt(handle_.get(), CURLOPT_HTTPGET, 1L);
    return perform(nullptr);
}

HttpsReply HttpsClient::perform(curl_slist *headers)
{
    const std::unique_ptr<curl_slist, void (*)(curl_slist *)> owned(headers, curl_slist_free_all);
    HttpsReply reply;
    Sink head = {&reply.head, greatestReply};
    Sink body = {&reply.body, greatestReply};
    const std::string scheme = authorityFile_.empty() ? "http" : "https";
    const std::string url = scheme + "://" + host + ":" + std::to_string(port_) + path;
    CURL *handle = handle_.get();
    curl_easy_setopt(handle, CURLOPT_URL, url.c_str());
    curl_easy_setopt(handle, CURLOPT_HTTPHEADER, headers);
    curl_easy_setopt(handle, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(handle, CURLOPT_TIMEOUT_MS, timeoutMilliseconds);
    curl_easy_setopt(handle, CURLOPT_ACCEPT_ENCODING, acceptEncoding);
    curl_easy_setopt(handle, CURLOPT_WRITEFUNCTION, keep);
    curl_easy_setopt(handle, CURLOPT_WRITEDATA, &body);
    curl_easy_setopt(handle, CURLOPT_HEADERFUNCTION, keep);
    curl_easy_setopt(handle, CURLOPT_HEADERDATA, &head);
    if (!authorityFile_.empty()) {
        curl_easy_setopt(handle, CURLOPT_CAINFO, authorityFile_.c_str());
        curl_easy_setopt(handle, CURLOPT_CAPATH, nullptr);
    }
    reply.code = curl_easy_perform(handle);
    curl_easy_getinfo(handle, CURLINFO_RESPONSE_CODE, &reply.status);
    curl_easy_getinfo(handle, CURLINFO_TOTAL_TIME, &reply.seconds);
    return reply;
}
