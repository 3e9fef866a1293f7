#include "tests/support/TlsSite.h"

namespace
{
constexpr int Patience = 60'000; // [ms]

void MakeCertificate(const QString &certificate, const QString &key, const QString &address)
{
    QProcess maker;
    maker.start(QStringLiteral("openssl"),
                {QStringLiteral("req"), QStringLiteral("-x509"), QStringLiteral("-newkey"), QStringLiteral("ec"),
                 QStringLiteral("-pkeyopt"), QStringLiteral("ec_paramgen_curve:prime256v1"), QStringLiteral("-nodes"),
                 QStringLiteral("-days"), QStringLiteral("2"), QStringLiteral("-keyout"), key, QStringLiteral("-out"),
                 certificate, QStringLiteral("-subj"), QStringLiteral("/CN=Site of the tests"),
                 QStringLiteral("-addext"), QStringLiteral("subjectAltName=IP:") + address});
    if (!maker.waitForFinished(Patience) || maker.exitCode() != 0)
        qFatal("no certificate: %s", maker.readAllStandardError().constData());
}
} // namespace

TlsSite::TlsSite(const QString &Address)
{
    const QString key = m_Folder.filePath(QStringLiteral("key.pem"));
    MakeCertificate(Certificate(), key, Address);
    m_Site.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_Site.start(QStringLiteral("python3"), {QStringLiteral(NOGGLE_TLS_SITE), Certificate(), key});
    if (!m_Site.waitForReadyRead(Patience)) qFatal("the site behind TLS does not start");
    m_Port = QString::fromLatin1(m_Site.readLine()).trimmed();
}

TlsSite::~TlsSite() { EndAndTell(); }

QString TlsSite::Certificate() const { return m_Folder.filePath(QStringLiteral("certificate.pem")); }

QStringList TlsSite::EndAndTell()
{
    m_Site.kill();
    m_Site.waitForFinished();
    return QString::fromUtf8(m_Site.readAllStandardOutput()).split(u'\n', Qt::SkipEmptyParts);
}
