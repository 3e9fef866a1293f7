// A real site behind TLS on the loopback, a process of its own, with a certificate made for the occasion that nobody
// vouches for but itself. It answers 200 to everything.
#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

class TlsSite
{
public:
    /// The certificate's name is the address that it is for.
    explicit TlsSite(const QString &Address = QStringLiteral("127.0.0.1"));
    ~TlsSite();
    TlsSite(const TlsSite &) = delete;
    TlsSite &operator=(const TlsSite &) = delete;

    /// "127.0.0.1:40123".
    QString Host() const { return QStringLiteral("127.0.0.1:") + m_Port; }
    /// The certificate, a PEM file for who wants to trust it.
    QString Certificate() const;
    /// Ends the site. Answer: for each request the protocol agreed on and the first line, "http/1.1 GET / HTTP/1.1".
    QStringList EndAndTell();

private:
    QTemporaryDir m_Folder;
    QProcess m_Site;
    QString m_Port;
};
