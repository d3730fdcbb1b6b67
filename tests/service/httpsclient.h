// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <curl/curl.h>
#include <memory>
#include <string>

/// What came back for one request.
struct HttpsReply {
    CURLcode code = CURLE_OK; ///< How the transfer ended.
    long status = 0;
    std::string head;
    std::string body;
    double seconds = 0;
};

/// A client of the account port by libcurl. Keeps its connection from one request to the next. One thread.
class HttpsClient {
public:
    /// Trusts the authority in `authorityFile`; empty: speaks HTTP without TLS.
    HttpsClient(int port, std::string authorityFile);

    HttpsReply post(const std::string &body);
    HttpsReply get();

    std::string host = "localhost";
    std::string path = "/account";
    std::string contentType = "application/xml; charset=utf-8";
    std::string extraHeader;
    long timeoutMilliseconds = 20000;
    std::size_t greatestReply = 8388608; ///< Bytes of head or body after which the transfer is given up.
    const char *acceptEncoding = nullptr;

private:
    struct Freed {
        void operator()(CURL *handle) const { curl_easy_cleanup(handle); }
    };

    HttpsReply perform(curl_slist *headers);

    const int port_;
    const std::string authorityFile_;
    std::unique_ptr<CURL, Freed> handle_;
};
