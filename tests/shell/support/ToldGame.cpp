#include "tests/shell/support/ToldGame.h"

QStringList ToldStory::Names() const
{
    QStringList names;
    for (const QString &verb : Verbs) names << verb.section(u' ', 0, 0);
    return names;
}

ToldGame::ToldGame(QWidget *Container, ToldStory &Story) : CGameArea(Container), m_Story(Story) { Story.Game = this; }

void ToldGame::SetNoggleFrameWork(CNoggleFramework *Given)
{
    Framework = Given;
    if (m_Story.AtFramework) m_Story.AtFramework(*this);
}

QVariant ToldGame::Message(const QString &Cmd, QVariant &Info1, QVariant &Info2)
{
    const auto told = [](const QVariant &value) { return QLatin1String(value.typeName()) + u' ' + value.toString(); };
    m_Story.Verbs << QStringList{Cmd, told(Info1), told(Info2)}.join(u' ');
    const QVariant points = m_Story.Points; // this game may be gone after what comes now
    if (m_Story.At) m_Story.At(*this, Cmd);
    return Cmd == u"score" ? points : QVariant();
}
