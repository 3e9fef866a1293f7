// One HTTP GET at a time, of an address that goes out byte for byte as it was given: nothing is encoded, so a query
// may hold blanks, "&" and letters of every alphabet.
//
// HTTP/1.1 without encryption, on a connection of its own for each request. No proxy is taken from the environment,
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

    /// Whether the bytes may go into the line of a request: a control byte would end it or forge another line.
    static bool IsSafe(const QByteArray &Address);

    /// Begins the transfer of an address with its scheme, "http://host:port/path?query"; one that is under way is
    /// given up. What begins with the first "/" after the host is the request's target.
    /// Failure: none here; ResponseCode tells it. An address that is not safe is never sent.
    void OpenURL(const QByteArray &Address);
    /// Moves the transfer on as far as it goes without waiting. Answer: whether it goes on.
    bool StillExecuting();
    /// Sleeps until there is something to do for the transfer, for so long at most. [ms]
    void Wait(int Longest);

    /// Of the last transfer: 0 when a reply came in whole, else the number of the failure as libcurl counts them:
    /// 3 no address, 6 unknown host, 7 refused, 18 cut short, 28 took too long, 52 no byte of a reply.
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
    int m_ResponseCode = 0;
    QByteArray m_Header;
    bool m_IsExecuting = false;
};
