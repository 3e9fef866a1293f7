#include "platform/InternetTransfer.h"

#include "platform/ReplyHeader.h"
#include "platform/RuntimeError.h"

#include <curl/curl.h>
#include <dlfcn.h>

#include <algorithm>

namespace
{
constexpr qsizetype LongestHeader = 1 << 20; // [bytes]

[[noreturn]] void Refuse() { throw RuntimeError(QStringLiteral("The internet transfer can't be started.")); }

// The library, loaded with the first transfer: it brings some twenty others along, and most starts send nothing. It
// stays loaded.
class Curl
{
public:
    static const Curl &The()
    {
        static const Curl the;
        return the;
    }

private:
    void *const m_Library = dlopen("libcurl.so.4", RTLD_NOW | RTLD_LOCAL);

    template <typename Function>
    Function *Named(const char *name, Function *) const
    {
        void *const found = m_Library == nullptr ? nullptr : dlsym(m_Library, name);
        if (found == nullptr) Refuse();
        return reinterpret_cast<Function *>(found);
    }
    Curl()
    {
        if (GlobalInit(CURL_GLOBAL_DEFAULT) != CURLE_OK) Refuse();
    }

public:
// In brackets, since some of the names are macros as well.
#define NOGGLE_CURL(Member, name) decltype(&(name)) const Member = Named(#name, decltype(&(name)){})
    NOGGLE_CURL(GlobalInit, curl_global_init);
    NOGGLE_CURL(EasyInit, curl_easy_init);
    NOGGLE_CURL(EasyReset, curl_easy_reset);
    NOGGLE_CURL(EasySetOption, curl_easy_setopt);
    NOGGLE_CURL(EasyCleanup, curl_easy_cleanup);
    NOGGLE_CURL(MultiInit, curl_multi_init);
    NOGGLE_CURL(MultiAddHandle, curl_multi_add_handle);
    NOGGLE_CURL(MultiRemoveHandle, curl_multi_remove_handle);
    NOGGLE_CURL(MultiPerform, curl_multi_perform);
    NOGGLE_CURL(MultiInfoRead, curl_multi_info_read);
    NOGGLE_CURL(MultiPoll, curl_multi_poll);
    NOGGLE_CURL(MultiCleanup, curl_multi_cleanup);
#undef NOGGLE_CURL
};

std::size_t ThrowAway(char *, std::size_t size, std::size_t count, void *) { return size * count; }

struct Parts
{
    QByteArray Server; // "https://host:port"
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
    Handles() : Multi(Library.MultiInit()), Easy(Library.EasyInit())
    {
        if (Multi == nullptr || Easy == nullptr) Refuse();
    }
    ~Handles()
    {
        Leave();
        Library.EasyCleanup(Easy);
        Library.MultiCleanup(Multi);
    }
    Handles(const Handles &) = delete;
    Handles &operator=(const Handles &) = delete;

    void Enter() { IsIn = Library.MultiAddHandle(Multi, Easy) == CURLM_OK; }
    void Leave()
    {
        if (IsIn) Library.MultiRemoveHandle(Multi, Easy);
        IsIn = false;
    }

    const Curl &Library = Curl::The();
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
    const Curl &library = m_Handles->Library;
    CURL *const easy = m_Handles->Easy;
    library.EasyReset(easy);
    library.EasySetOption(easy, CURLOPT_URL, Server.constData());
    library.EasySetOption(easy, CURLOPT_REQUEST_TARGET, Target.constData());
    library.EasySetOption(easy, CURLOPT_PROTOCOLS_STR, "http,https");
    library.EasySetOption(easy, CURLOPT_SSLVERSION, static_cast<long>(CURL_SSLVERSION_TLSv1_2));
    if (!m_Trusted.isEmpty()) library.EasySetOption(easy, CURLOPT_CAINFO, m_Trusted.constData());
    library.EasySetOption(easy, CURLOPT_HTTP_VERSION, static_cast<long>(CURL_HTTP_VERSION_1_1));
    library.EasySetOption(easy, CURLOPT_USERAGENT, "Noggle");
    library.EasySetOption(easy, CURLOPT_PROXY, ""); // else the environment may name one
    library.EasySetOption(easy, CURLOPT_FOLLOWLOCATION, 0L);
    // A connection that is used again and found dead is replaced by the library, which sends the request once more.
    library.EasySetOption(easy, CURLOPT_FRESH_CONNECT, 1L);
    library.EasySetOption(easy, CURLOPT_FORBID_REUSE, 1L);
    // A reply without headers is one all the same: it has none to show.
    library.EasySetOption(easy, CURLOPT_HTTP09_ALLOWED, 1L);
    library.EasySetOption(easy, CURLOPT_NOSIGNAL, 1L);
    library.EasySetOption(easy, CURLOPT_CONNECTTIMEOUT_MS, m_Limits.Connect);
    library.EasySetOption(easy, CURLOPT_TIMEOUT_MS, m_Limits.Whole);
    library.EasySetOption(easy, CURLOPT_WRITEFUNCTION, &ThrowAway);
    library.EasySetOption(easy, CURLOPT_HEADERFUNCTION, &InternetTransfer::TakeHeader);
    library.EasySetOption(easy, CURLOPT_HEADERDATA, this);
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
    if (m_Handles->Library.MultiPerform(m_Handles->Multi, &running) != CURLM_OK) {
        m_ResponseCode = CURLE_FAILED_INIT;
        GiveUp();
        return false;
    }
    int waiting = 0;
    while (const CURLMsg *const message = m_Handles->Library.MultiInfoRead(m_Handles->Multi, &waiting)) {
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
    if (m_IsExecuting) m_Handles->Library.MultiPoll(m_Handles->Multi, nullptr, 0, Longest, nullptr);
}

void InternetTransfer::GiveUp()
{
    m_Handles->Leave();
    m_IsExecuting = false;
}
