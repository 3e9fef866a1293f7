#include "platform/InternetTransfer.h"

#include "platform/ReplyHeader.h"
#include "platform/RuntimeError.h"

#include <curl/curl.h>

#include <algorithm>

namespace
{
constexpr qsizetype LongestHeader = 1 << 20; // [bytes]

// Runs once, before the first handle is made.
void StartLibrary()
{
    static const CURLcode started = curl_global_init(CURL_GLOBAL_DEFAULT);
    if (started != CURLE_OK) throw RuntimeError(QStringLiteral("The internet transfer can't be started."));
}

std::size_t ThrowAway(char *, std::size_t size, std::size_t count, void *) { return size * count; }

struct Parts
{
    QByteArray Server; // "http://host:port"
    QByteArray Target; // "/path?query"
};

Parts PartsOf(const QByteArray &address)
{
    const qsizetype scheme = address.indexOf("://");
    const qsizetype slash = scheme < 0 ? -1 : address.indexOf('/', scheme + 3);
    if (slash < 0) return {address, "/"};
    return {address.left(slash), address.mid(slash)};
}
} // namespace

struct InternetTransfer::Handles
{
    Handles() : Multi((StartLibrary(), curl_multi_init())), Easy(curl_easy_init())
    {
        if (Multi == nullptr || Easy == nullptr)
            throw RuntimeError(QStringLiteral("The internet transfer can't be started."));
    }
    ~Handles()
    {
        Leave();
        curl_easy_cleanup(Easy);
        curl_multi_cleanup(Multi);
    }
    Handles(const Handles &) = delete;
    Handles &operator=(const Handles &) = delete;

    void Enter() { IsIn = curl_multi_add_handle(Multi, Easy) == CURLM_OK; }
    void Leave()
    {
        if (IsIn) curl_multi_remove_handle(Multi, Easy);
        IsIn = false;
    }

    CURLM *Multi;
    CURL *Easy;
    bool IsIn = false;
    ReplyHeader Header;
};

InternetTransfer::InternetTransfer() : m_Handles(std::make_unique<Handles>()) {}
InternetTransfer::~InternetTransfer() = default;

bool InternetTransfer::IsSafe(const QByteArray &Address)
{
    return std::none_of(Address.begin(), Address.end(), [](char byte) {
        const auto code = static_cast<unsigned char>(byte);
        return code < 0x20 || code == 0x7f;
    });
}

void InternetTransfer::OpenURL(const QByteArray &Address)
{
    GiveUp();
    m_Header.clear();
    m_Handles->Header = {};
    if (!IsSafe(Address)) {
        m_ResponseCode = CURLE_URL_MALFORMAT;
        return;
    }
    m_ResponseCode = 0;
    const Parts parts = PartsOf(Address);
    Begin(parts.Server, parts.Target);
}

void InternetTransfer::Begin(const QByteArray &Server, const QByteArray &Target)
{
    CURL *const easy = m_Handles->Easy;
    curl_easy_reset(easy);
    curl_easy_setopt(easy, CURLOPT_URL, Server.constData());
    curl_easy_setopt(easy, CURLOPT_REQUEST_TARGET, Target.constData());
    curl_easy_setopt(easy, CURLOPT_PROTOCOLS_STR, "http");
    curl_easy_setopt(easy, CURLOPT_HTTP_VERSION, static_cast<long>(CURL_HTTP_VERSION_1_1));
    curl_easy_setopt(easy, CURLOPT_USERAGENT, "Noggle");
    curl_easy_setopt(easy, CURLOPT_PROXY, ""); // else the environment may name one
    curl_easy_setopt(easy, CURLOPT_FOLLOWLOCATION, 0L);
    // A connection that is used again and found dead is replaced by the library, which sends the request once more.
    curl_easy_setopt(easy, CURLOPT_FRESH_CONNECT, 1L);
    curl_easy_setopt(easy, CURLOPT_FORBID_REUSE, 1L);
    // A reply without headers is one all the same: it has none to show.
    curl_easy_setopt(easy, CURLOPT_HTTP09_ALLOWED, 1L);
    curl_easy_setopt(easy, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(easy, CURLOPT_CONNECTTIMEOUT_MS, m_Limits.Connect);
    curl_easy_setopt(easy, CURLOPT_TIMEOUT_MS, m_Limits.Whole);
    curl_easy_setopt(easy, CURLOPT_WRITEFUNCTION, &ThrowAway);
    curl_easy_setopt(easy, CURLOPT_HEADERFUNCTION, &InternetTransfer::TakeHeader);
    curl_easy_setopt(easy, CURLOPT_HEADERDATA, this);
    m_Handles->Enter();
    m_IsExecuting = m_Handles->IsIn;
    if (!m_IsExecuting) m_ResponseCode = CURLE_FAILED_INIT;
}

std::size_t InternetTransfer::TakeHeader(char *Bytes, std::size_t Size, std::size_t Count, void *Transfer)
{
    ReplyHeader &header = static_cast<InternetTransfer *>(Transfer)->m_Handles->Header;
    const std::size_t length = Size * Count;
    header.Take(QByteArrayView(Bytes, static_cast<qsizetype>(length)));
    return header.Text().size() <= LongestHeader ? length : 0; // fewer than came end the transfer
}

bool InternetTransfer::StillExecuting()
{
    if (!m_IsExecuting) return false;
    int running = 0;
    if (curl_multi_perform(m_Handles->Multi, &running) != CURLM_OK) {
        m_ResponseCode = CURLE_FAILED_INIT;
        GiveUp();
        return false;
    }
    int waiting = 0;
    while (const CURLMsg *const message = curl_multi_info_read(m_Handles->Multi, &waiting)) {
        if (message->msg != CURLMSG_DONE) continue;
        m_ResponseCode = message->data.result;
        m_Header = m_Handles->Header.Text();
        GiveUp();
        return false;
    }
    return true;
}

void InternetTransfer::Wait(int Longest)
{
    if (m_IsExecuting) curl_multi_poll(m_Handles->Multi, nullptr, 0, Longest, nullptr);
}

void InternetTransfer::GiveUp()
{
    m_Handles->Leave();
    m_IsExecuting = false;
}
