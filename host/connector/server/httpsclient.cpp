// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "httpsclient.h"

#include "nntp/certificatenames.h"
#include "replyguard.h"

#include <QSslCertificate>
#include <QThread>

#include <curl/curl.h>

namespace {

using Kind = RequestFailure::Kind;

constexpr int longestHeaders = 64 * 1024;

/// What libcurl's callbacks count and refuse during one exchange.
struct Exchange {
    CURL *easy;
    const QString &host;
    QByteArray *reply;
    int headerBytes = 0;
    RequestFailure failure;

    size_t refuse(const RequestFailure &why)
    {
        failure = why;
        return 0;
    }
};

QSslCertificate peerCertificate(CURL *easy)
{
    curl_certinfo *chain = nullptr;
    curl_easy_getinfo(easy, CURLINFO_CERTINFO, &chain);
    const curl_slist *line = chain && chain->num_of_certs > 0 ? chain->certinfo[0] : nullptr;
    for (const QByteArray prefix("Cert:"); line; line = line->next) {
        if (qstrncmp(line->data, prefix.constData(), uint(prefix.size())) == 0)
            return QSslCertificate(QByteArray(line->data + prefix.size()), QSsl::Pem);
    }
    return QSslCertificate();
}

// After the handshake and before the request is sent.
int onConnected(void *user, char *, char *, int, int)
{
    auto *exchange = static_cast<Exchange *>(user);
    if (certificatenames::include(peerCertificate(exchange->easy), exchange->host))
        return CURL_PREREQFUNC_OK;
    exchange->failure = Kind::NotTrusted;
    return CURL_PREREQFUNC_ABORT;
}

size_t onBody(char *data, size_t, size_t size, void *user)
{
    auto *exchange = static_cast<Exchange *>(user);
    long status = 0;
    curl_easy_getinfo(exchange->easy, CURLINFO_RESPONSE_CODE, &status);
    if (status != 200)
        return exchange->refuse({Kind::BadStatus, QString::number(status)});
    if (size > size_t(ReplyLimits().bytes - exchange->reply->size()))
        return exchange->refuse(Kind::TooLarge);
    exchange->reply->append(data, int(size));
    return size;
}

bool isContentEncoding(const QByteArray &line)
{
    const int colon = line.indexOf(':');
    return line.left(colon).trimmed().toLower() == "content-encoding" &&
           line.mid(colon + 1).trimmed().toLower() != "identity";
}

size_t onHeader(char *data, size_t, size_t size, void *user)
{
    auto *exchange = static_cast<Exchange *>(user);
    exchange->headerBytes += int(size);
    if (exchange->headerBytes > longestHeaders)
        return exchange->refuse(Kind::TooLarge);
    if (isContentEncoding(QByteArray::fromRawData(data, int(size))))
        return exchange->refuse({Kind::BadReply, QStringLiteral("an encoded reply")});
    return size;
}

RequestFailure failureOf(CURLcode code)
{
    switch (code) {
    case CURLE_OK:
        return {};
    case CURLE_OPERATION_TIMEDOUT:
        return Kind::TimedOut;
    case CURLE_PEER_FAILED_VERIFICATION:
    case CURLE_SSL_CONNECT_ERROR:
    case CURLE_SSL_CACERT_BADFILE:
    case CURLE_SSL_CERTPROBLEM:
    case CURLE_SSL_CIPHER:
    case CURLE_SSL_ISSUER_ERROR:
        return Kind::NotTrusted;
    case CURLE_PARTIAL_FILE:
        return Kind::Truncated;
    case CURLE_WEIRD_SERVER_REPLY:
    case CURLE_UNSUPPORTED_PROTOCOL:
    case CURLE_BAD_CONTENT_ENCODING:
        return {Kind::BadReply, QString::fromUtf8(curl_easy_strerror(code))};
    default:
        return {Kind::Unreachable, QString::fromUtf8(curl_easy_strerror(code))};
    }
}

// RFC 6761 keeps these names free for examples, so no server ever answers to them and nobody need be asked.
bool isInvented(const QString &host)
{
    return host.isEmpty() || host.endsWith(QLatin1String(".example"), Qt::CaseInsensitive);
}

bool isInterrupted()
{
    return QThread::currentThread()->isInterruptionRequested();
}

} // namespace

struct HttpsClient::Private {
    CURLM *multi = nullptr;

    void setUp(CURL *easy, const HttpsTarget &target, std::chrono::milliseconds left) const;
    static void setUpSecurity(CURL *easy, const HttpsTarget &target);
    CURLcode run(CURL *easy, bool &interrupted) const;
};

HttpsClient::HttpsClient()
    : d(std::make_unique<Private>())
{
    curl_global_init(CURL_GLOBAL_DEFAULT);
    d->multi = curl_multi_init();
}

HttpsClient::~HttpsClient()
{
    curl_multi_cleanup(d->multi);
    curl_global_cleanup();
}

void HttpsClient::wake()
{
    curl_multi_wakeup(d->multi);
}

void HttpsClient::Private::setUp(CURL *easy, const HttpsTarget &target, std::chrono::milliseconds left) const
{
    const QByteArray url =
        QStringLiteral("https://%1:%2/account").arg(target.host, QString::number(target.port)).toUtf8();
    curl_easy_setopt(easy, CURLOPT_URL, url.constData());
    curl_easy_setopt(easy, CURLOPT_PROTOCOLS_STR, "https");
    curl_easy_setopt(easy, CURLOPT_FOLLOWLOCATION, 0L);
    curl_easy_setopt(easy, CURLOPT_NOPROXY, "*");
    curl_easy_setopt(easy, CURLOPT_HTTP_VERSION, long(CURL_HTTP_VERSION_1_1));
    curl_easy_setopt(easy, CURLOPT_USERAGENT, "Halvora");
    curl_easy_setopt(easy, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(easy, CURLOPT_QUICK_EXIT, 1L);
    curl_easy_setopt(easy, CURLOPT_FRESH_CONNECT, 1L);
    curl_easy_setopt(easy, CURLOPT_FORBID_REUSE, 1L);
    curl_easy_setopt(easy, CURLOPT_DNS_CACHE_TIMEOUT, 0L);
    curl_easy_setopt(easy, CURLOPT_TIMEOUT_MS, long(left.count()));
    setUpSecurity(easy, target);
}

void HttpsClient::Private::setUpSecurity(CURL *easy, const HttpsTarget &target)
{
    curl_easy_setopt(easy, CURLOPT_SSLVERSION, long(CURL_SSLVERSION_TLSv1_2));
    curl_easy_setopt(easy, CURLOPT_SSL_VERIFYPEER, 1L);
    curl_easy_setopt(easy, CURLOPT_SSL_VERIFYHOST, 2L);
    curl_easy_setopt(easy, CURLOPT_SSL_SESSIONID_CACHE, 0L);
    curl_easy_setopt(easy, CURLOPT_CERTINFO, 1L);
    if (target.authorityFile.isEmpty())
        return;
    curl_easy_setopt(easy, CURLOPT_CAINFO, target.authorityFile.toLocal8Bit().constData());
    curl_easy_setopt(easy, CURLOPT_CAPATH, nullptr);
}

CURLcode HttpsClient::Private::run(CURL *easy, bool &interrupted) const
{
    curl_multi_add_handle(multi, easy);
    CURLcode code = CURLE_FAILED_INIT;
    int running = 1;
    while (running && !(interrupted = isInterrupted())) {
        if (curl_multi_perform(multi, &running) != CURLM_OK)
            break;
        if (running && curl_multi_poll(multi, nullptr, 0, 1000, nullptr) != CURLM_OK)
            break;
    }
    int left = 0;
    while (CURLMsg *message = curl_multi_info_read(multi, &left)) {
        if (message->msg == CURLMSG_DONE)
            code = message->data.result;
    }
    curl_multi_remove_handle(multi, easy);
    return code;
}

RequestFailure HttpsClient::post(const HttpsTarget &target, const QByteArray &document,
                                 std::chrono::steady_clock::time_point deadline, QByteArray &reply)
{
    if (isInvented(target.host))
        return Kind::NoService;
    const auto left =
        std::chrono::duration_cast<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now());
    if (left.count() <= 0)
        return Kind::TimedOut;

    const std::unique_ptr<CURL, decltype(&curl_easy_cleanup)> easy(curl_easy_init(), &curl_easy_cleanup);
    curl_slist *lines = curl_slist_append(nullptr, "Content-Type: application/xml; charset=utf-8");
    lines = curl_slist_append(lines, "Expect:");
    const std::unique_ptr<curl_slist, decltype(&curl_slist_free_all)> headers(lines, &curl_slist_free_all);

    Exchange exchange{easy.get(), target.host, &reply, 0, {}};
    d->setUp(easy.get(), target, left);
    curl_easy_setopt(easy.get(), CURLOPT_HTTPHEADER, headers.get());
    curl_easy_setopt(easy.get(), CURLOPT_POSTFIELDSIZE, long(document.size()));
    curl_easy_setopt(easy.get(), CURLOPT_POSTFIELDS, document.constData());
    curl_easy_setopt(easy.get(), CURLOPT_PREREQFUNCTION, &onConnected);
    curl_easy_setopt(easy.get(), CURLOPT_PREREQDATA, &exchange);
    curl_easy_setopt(easy.get(), CURLOPT_WRITEFUNCTION, &onBody);
    curl_easy_setopt(easy.get(), CURLOPT_WRITEDATA, &exchange);
    curl_easy_setopt(easy.get(), CURLOPT_HEADERFUNCTION, &onHeader);
    curl_easy_setopt(easy.get(), CURLOPT_HEADERDATA, &exchange);

    bool interrupted = false;
    const CURLcode code = d->run(easy.get(), interrupted);
    if (interrupted)
        return Kind::TimedOut;
    if (!exchange.failure.isNull())
        return exchange.failure;
    long status = 0;
    curl_easy_getinfo(easy.get(), CURLINFO_RESPONSE_CODE, &status);
    if (code == CURLE_OK && status != 200)
        return {Kind::BadStatus, QString::number(status)};
    return failureOf(code);
}
