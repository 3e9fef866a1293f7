// The smallest game that does everything a game has to do. Copy this folder, give it another name, and change it.
//
// A game is a widget inside the shell's game area. The shell makes it, sends it a handful of verbs, and takes it
// away. The game reaches the shell through the one pointer that it gets: Framework. sdk/CGameArea.h and
// sdk/CNoggleFramework.h tell everything; this file shows it in the order in which it happens.
#include "sdk/CGameArea.h"

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace
{
constexpr int Goal = 10;          // clicks
constexpr int PointsForClick = 9; // 90 for all ten, and the shell adds a bonus for the time that is left
constexpr int SpaceKey = 32;
} // namespace

class BlankArea : public CGameArea
{
public:
    using CGameArea::CGameArea;

    // 1. Right after creation, before any verb. Keep the pointer, never delete it.
    void SetNoggleFrameWork(CNoggleFramework *Framework) override { m_Framework = Framework; }

    // 2. The verbs. Do what you need for each, and ignore the rest.
    QVariant Message(const QString &Cmd, QVariant &Info1, QVariant &) override
    {
        if (Cmd == u"start") Start(Info1.toInt());
        if (Cmd == u"keypress" && Info1.toInt() == SpaceKey && isVisible()) Click(); // hidden means paused
        if (Cmd == u"changeskin") update();
        if (Cmd == u"score") return m_Clicks * PointsForClick; // may be asked at any moment
        return {};
    }

protected:
    // 3. Drawing: the skin's background first, then your own.
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        m_Framework->DrawBackground(&painter);
        painter.setRenderHint(QPainter::Antialiasing);

        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(0xf6, 0xb4, 0x3c));
        painter.drawEllipse(Circle());

        // Words come from the section of the present language in GameSettings.ini, else from [default].
        painter.setPen(QColor(0x12, 0x3c, 0x32));
        painter.setFont(QFont(font().family(), std::max(12, height() / 24), QFont::Bold));
        painter.drawText(Circle(), Qt::AlignCenter, QString::number(Goal - m_Clicks));
        painter.drawText(rect().adjusted(0, height() / 20, 0, 0), Qt::AlignHCenter | Qt::AlignTop,
                         m_Framework->LangString(QStringLiteral("Hint")));
    }

    void mousePressEvent(QMouseEvent *event) override
    {
        if (Circle().contains(event->pos())) Click();
    }

private:
    void Start(int level)
    {
        m_Level = level;
        m_Clicks = 0;
        update();
    }

    // 4. Tell how far the player is, and end the session when the game is done.
    void Click()
    {
        if (m_Clicks == Goal) return;
        ++m_Clicks;
        update();
        m_Framework->Message(QStringLiteral("progress"), 100 * m_Clicks / Goal);
        // When this returns, the score has been shown and this game has been taken away: nothing may follow it.
        if (m_Clicks == Goal) m_Framework->Message(QStringLiteral("gameover"));
    }

    QRect Circle() const
    {
        const int size = std::min(width(), height()) / (m_Level + 1);
        return {(width() - size) / 2, (height() - size) / 2, size, size};
    }

    CNoggleFramework *m_Framework = nullptr;
    int m_Level = 1;
    int m_Clicks = 0;
};

// 5. What the library exports. component.json lists the classes: the "component" of GameSettings.ini and ".GameArea".
class BlankComponent final : public QObject, public CGameComponent
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID NOGGLE_GAME_IID FILE "component.json")
    Q_INTERFACES(CGameComponent)

public:
    CGameArea *Create(const QString &ClassName, QWidget *Container) override
    {
        if (ClassName != u"Blank.GameArea") return nullptr;
        return new BlankArea(Container);
    }
};

#include "Blank.moc"
