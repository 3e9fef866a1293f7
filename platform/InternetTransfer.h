// One HTTP GET at a time, of an address that goes out byte for byte as it was given: nothing is encoded, so a query
// may hold blanks, "&" and letters of every alphabet.
//
// HTTP/1.1, on a connection of its own for each request; over TLS where the address begins with "https:", and then
// only to a site whose certificate is for its name and trusted by the system. No proxy is taken from the environment,
// no redirect is followed, nothing is sent a second time, and the body of the reply is thrown away.
#pragma once

#include <QByteArray>

#include <memory>

class InternetTransfer
{
public:
    InternetTransfer();
    ~InternetTransfer();
    InternetTransfer(const InternetTransfer &) = delete;
    InternetTransfer &operator=(const InternetTransfer &) = delete;

    /// How long may pass until the connection stands, and until the whole reply is there. [ms]
    struct Limits
    {
        long Connect = 30'000;
        long Whole = 120'000;
    };
    void SetLimits(const Limits &Limits) { m_Limits = Limits; }
    /// A PEM file of certificates to trust in the place of the system's.
    void SetTrusted(const QByteArray &File) { m_Trusted = File; }

    /// Whether the bytes may go into the line of a request: a control byte would end it or forge another line.
    static bool IsSafe(const QByteArray &Address);

    /// Begins the transfer of an address with its scheme, "https://host:port/path?query"; one that is under way is
    /// given up. What begins with the first "/" after the host is the request's target.
    /// Failure: none here; ResponseCode tells it. An address that is not safe is never sent.
    void OpenURL(const QByteArray &Address);
    /// Moves the transfer on as far as it goes without waiting. Answer: whether it goes on.
    bool StillExecuting();
    /// Sleeps until there is something to do for the transfer, for so long at most. [ms]
    void Wait(int Longest);

    /// Of the last transfer: 0 when a reply came in whole, else the number of the failure as libcurl counts them:
    /// 3 no address, 6 unknown host, 7 refused, 18 cut short, 28 took too long, 35 no TLS, 52 no byte of a reply,
    /// 60 a certificate that is for another name or that nobody vouches for.
    int ResponseCode() const { return m_ResponseCode; }
    /// Of the last transfer: the status line and the headers, each ended by CR LF; empty when the reply had none.
    const QByteArray &GetHeader() const { return m_Header; }

private:
    struct Handles;
    static std::size_t TakeHeader(char *Bytes, std::size_t Size, std::size_t Count, void *Transfer);
    void Begin(const QByteArray &Server, const QByteArray &Target);
    void GiveUp();

    std::unique_ptr<Handles> m_Handles;
    Limits m_Limits;
    QByteArray m_Trusted;
    int m_ResponseCode = 0;
    QByteArray m_Header;
    bool m_IsExecuting = false;
};
