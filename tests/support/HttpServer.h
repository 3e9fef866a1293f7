// A real HTTP server on the loopback, on a thread of its own: it keeps the bytes of every request as they came in and
// answers with bytes of the test's choice, right or wrong. One connection at a time, closed after the answer.
#pragma once

#include <QByteArray>
#include <QString>

#include <atomic>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

class HttpServer
{
public:
    struct Reply
    {
        QByteArray Bytes = {};
        bool IsHeld = false;  // sent once Release is called
        bool IsReset = false; // the connection breaks off instead of being closed in order
    };
    /// Asked on the server's thread, with the request's number from 1 and its bytes.
    using Answer = std::function<Reply(int Number, const QByteArray &Request)>;

    explicit HttpServer(Answer Answers);
    /// The same reply to every request.
    explicit HttpServer(const QByteArray &Bytes);
    ~HttpServer();
    HttpServer(const HttpServer &) = delete;
    HttpServer &operator=(const HttpServer &) = delete;

    /// "127.0.0.1:40123".
    QString Host() const;
    /// The requests so far, whole, in the order in which they came.
    std::vector<QByteArray> Requests() const;
    /// Their first lines, without the line's end.
    std::vector<QByteArray> Lines() const;
    int Count() const { return static_cast<int>(Requests().size()); }
    /// Lets the reply that is held, or the next one that will be, go.
    void Release();

    static QByteArray Ok() { return Status("200 OK"); }
    /// A reply with that status and a short body.
    static QByteArray Status(const QByteArray &Status);

private:
    void Serve();
    void Converse(int Client);
    void AwaitRelease();

    Answer m_Answer;
    int m_Port = 0;
    int m_Listener; // made after the port that it fills in
    mutable std::mutex m_Lock;
    std::condition_variable m_Changed;
    std::vector<QByteArray> m_Requests;
    int m_Released = 0;
    std::atomic<bool> m_Ends = false;
    std::thread m_Thread;
};

/// "127.0.0.1:" and a port where nobody listens.
QString RefusingHost();
