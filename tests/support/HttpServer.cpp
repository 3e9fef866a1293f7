#include "tests/support/HttpServer.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <utility>

namespace
{
int Listen(int &port)
{
    const int listener = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    auto *const plain = reinterpret_cast<sockaddr *>(&address);
    if (listener < 0 || bind(listener, plain, size) != 0 || getsockname(listener, plain, &size) != 0)
        qFatal("no port on the loopback");
    port = ntohs(address.sin_port);
    return listener;
}

QByteArray RequestOf(int client)
{
    QByteArray request;
    char bytes[65536];
    while (!request.contains("\r\n\r\n")) {
        const ssize_t count = recv(client, bytes, sizeof bytes, 0);
        if (count <= 0) break;
        request.append(bytes, count);
    }
    return request;
}

void SendAll(int client, const QByteArray &bytes)
{
    for (qsizetype sent = 0; sent < bytes.size();) {
        const auto count =
            send(client, bytes.constData() + sent, static_cast<std::size_t>(bytes.size() - sent), MSG_NOSIGNAL);
        if (count <= 0) return;
        sent += count;
    }
}
} // namespace

HttpServer::HttpServer(Answer Answers) : m_Answer(std::move(Answers)), m_Listener(Listen(m_Port))
{
    if (listen(m_Listener, 64) != 0) qFatal("the test's server can't listen");
    m_Thread = std::thread([this] { Serve(); });
}

HttpServer::HttpServer(const QByteArray &Bytes)
    : HttpServer([Bytes](int, const QByteArray &) { return Reply{.Bytes = Bytes}; })
{}

HttpServer::~HttpServer()
{
    m_Ends = true;
    Release();
    m_Thread.join();
    close(m_Listener);
}

QString HttpServer::Host() const { return QStringLiteral("127.0.0.1:%1").arg(m_Port); }

std::vector<QByteArray> HttpServer::Requests() const
{
    const std::lock_guard lock(m_Lock);
    return m_Requests;
}

std::vector<QByteArray> HttpServer::Lines() const
{
    std::vector<QByteArray> lines = Requests();
    for (QByteArray &line : lines) line = line.left(line.indexOf("\r\n"));
    return lines;
}

void HttpServer::Release()
{
    const std::lock_guard lock(m_Lock);
    ++m_Released;
    m_Changed.notify_all();
}

QByteArray HttpServer::Status(const QByteArray &Status)
{
    return "HTTP/1.1 " + Status + "\r\nContent-Length: 4\r\nConnection: close\r\n\r\nbody";
}

void HttpServer::Serve()
{
    while (!m_Ends) {
        pollfd waiting{m_Listener, POLLIN, 0};
        if (poll(&waiting, 1, 20) <= 0) continue;
        const int client = accept4(m_Listener, nullptr, nullptr, SOCK_CLOEXEC);
        if (client < 0) continue;
        Converse(client);
        close(client);
    }
}

void HttpServer::Converse(int Client)
{
    const QByteArray request = RequestOf(Client);
    if (request.isEmpty()) return;
    int number = 0;
    {
        const std::lock_guard lock(m_Lock);
        m_Requests.push_back(request);
        number = static_cast<int>(m_Requests.size());
    }
    const Reply reply = m_Answer(number, request);
    if (reply.IsHeld) AwaitRelease();
    SendAll(Client, reply.Bytes);
    if (reply.IsReset) {
        const linger now{1, 0};
        setsockopt(Client, SOL_SOCKET, SO_LINGER, &now, sizeof now);
    }
}

void HttpServer::AwaitRelease()
{
    std::unique_lock lock(m_Lock);
    m_Changed.wait(lock, [this] { return m_Released > 0; });
    if (!m_Ends) --m_Released;
}

QString RefusingHost()
{
    int port = 0;
    close(Listen(port));
    return QStringLiteral("127.0.0.1:%1").arg(port);
}
