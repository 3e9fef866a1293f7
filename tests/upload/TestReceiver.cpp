// The score site that comes with the source: what the program sends stands in its table.
#include "tests/upload/UploadTest.h"

#include "domain/CWorkout.h"
#include "platform/store/Command.h"
#include "platform/store/Connection.h"

#include <QProcess>

namespace
{
class Receiver : public UploadTest
{
protected:
    Receiver() : m_File(m_Store.Folder().Path() + QStringLiteral("scores.db"))
    {
        m_Site.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_Site.start(QStringLiteral("python3"), {QStringLiteral(NOGGLE_RECEIVER), m_File, QStringLiteral("0")});
        if (!m_Site.waitForReadyRead(60'000)) qFatal("the receiver does not start");
        m_Address = QString::fromUtf8(m_Site.readLine()).trimmed();
        GivenSite(m_Address.mid(QStringLiteral("http://").size()).remove(u'/'));
    }
    ~Receiver() override
    {
        m_Site.kill();
        m_Site.waitForFinished();
    }
    QStringList Kept(const QString &sql) const
    {
        Connection connection;
        connection.Open(m_File);
        Command command(connection, sql);
        const auto rows = command.Open();
        QStringList lines;
        for (; !rows->Eof(); rows->MoveNext()) {
            QStringList values;
            for (int column = 0; column < rows->ColumnCount(); ++column)
                values << (rows->Value(column).isValid() ? rows->Value(column).toString() : QStringLiteral("null"));
            lines << values.join(u'|');
        }
        return lines;
    }

    QProcess m_Site;
    QString m_File;
    QString m_Address;
};
} // namespace

TEST_F(Receiver, KeepsEveryValueOfAResultWithBlanksAmpersandsAndGreekLetters)
{
    const auto player = GivenPlayer(QStringLiteral("Ann & Bob=Ωμέγα &PN= <b>"));
    const auto workout = player->Workouts().Add();
    const auto game = modMain::Games->GameByName(QStringLiteral("Arrows & Co"))->Key;
    workout->GamesPlayed().Add(player->Key, game, 80, -2, 113, 1, 4, 1);
    player->GamesPlayed();
    Run();
    EXPECT_EQ(TakeMessage(), QStringLiteral("All games uploaded."));
    EXPECT_EQ(
        Kept(QStringLiteral("select * from Result")),
        QStringList{QStringLiteral("ann@example.org|1|Ann & Bob=Ωμέγα &PN= <b>|Arrows & Co|80|113|2026-03-05|-2|"
                                   "1|4|1|1|2026-03-05")});
}

TEST_F(Receiver, KeepsAsManyResultsAsTheStoreHolds)
{
    GivenAnnsResults(60);
    Run();
    EXPECT_EQ(TakeMessage(), QStringLiteral("All games uploaded."));
    EXPECT_EQ(Kept(QStringLiteral("select count(*), count(distinct Score), sum(Score), max(WorkoutDay) from Result")),
              QStringList{QStringLiteral("60|60|1830|null")});
    EXPECT_EQ(MarkedCount(), 60);
}
