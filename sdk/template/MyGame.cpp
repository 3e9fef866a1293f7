// A small game, complete: rules that know no widget, a view on GameCanvas, and what the library exports. Change the
// rules first, then what Paint draws, then what a press means.
#include "sdk/author/GameCanvas.h"
#include "sdk/author/GameColours.h"
#include "sdk/author/Marks.h"
#include "sdk/author/SeededRandom.h"

#include <QPainter>

#include <algorithm>
#include <array>
#include <memory>
#include <vector>

namespace
{
constexpr int Rounds = 10;
constexpr int PointsForRound = 10;
constexpr int LeftKey = 37;
constexpr int RightKey = 39;
constexpr int MarkTime = 500; // [ms] for which a new mark grows

// The rules: level and seed decide everything, so a test can play thousands of sessions without a window.
class MyRules
{
public:
    MyRules(int Level, std::uint32_t Seed) : m_Level(std::max(1, Level)), m_Random(Seed) { Next(); }

    const std::array<int, 2> &Numbers() const { return m_Numbers; }
    const std::vector<bool> &Done() const { return m_Done; }
    bool Over() const { return static_cast<int>(m_Done.size()) == Rounds; }
    /// Guessing earns nothing: a wrong answer takes away what a right one gives.
    int Points() const
    {
        const auto right = std::count(m_Done.begin(), m_Done.end(), true);
        return std::max(0, PointsForRound * (2 * static_cast<int>(right) - static_cast<int>(m_Done.size())));
    }
    /// Side 0 is the left number. Answer: whether it is the larger one.
    bool Choose(int Side)
    {
        const bool right = m_Numbers[static_cast<std::size_t>(Side)] == std::max(m_Numbers[0], m_Numbers[1]);
        m_Done.push_back(right);
        if (!Over()) Next();
        return right;
    }

private:
    // Longer numbers at each level, and no further apart than one part in seven.
    void Next()
    {
        int highest = 10;
        for (int level = 1; level < m_Level && level < 5; ++level) highest *= 10;
        const int larger = m_Random.Between(highest / 2, highest - 1);
        const int smaller = larger - m_Random.Between(1, std::max(1, larger / 7));
        m_Numbers = m_Random.Coin() ? std::array{larger, smaller} : std::array{smaller, larger};
    }

    int m_Level;
    SeededRandom m_Random;
    std::array<int, 2> m_Numbers{};
    std::vector<bool> m_Done;
};

// The view: drawn in units of this design size, which is fitted into whatever place the game has.
constexpr QSizeF Design{620, 420};
constexpr QRectF SetRow{20, 20, 580, 28};
constexpr std::array Cards{QRectF{40, 90, 250, 230}, QRectF{330, 90, 250, 230}};
constexpr QRectF Foot{20, 360, 580, 40};

class MyArea final : public GameCanvas
{
public:
    explicit MyArea(QWidget *Container) : GameCanvas(Design, Container) {}

protected:
    void Started(int Level) override
    {
        m_Rules = std::make_unique<MyRules>(Level, Seed());
        Tell();
    }
    int Points() const override { return m_Rules ? m_Rules->Points() : 0; }

    void KeyPressed(int Key) override
    {
        if (Key == LeftKey) Choose(0);
        if (Key == RightKey) Choose(1);
    }
    void Pressed(QPointF Place) override
    {
        if (Cards[0].contains(Place))
            Choose(0);
        else if (Cards[1].contains(Place))
            Choose(1);
    }

    void Paint(QPainter &Painter) override
    {
        if (!m_Rules) return;
        const GameColours &colours = GameColours::For(Dark());
        Marks::DrawSet(Painter, SetRow, Rounds, m_Rules->Done(), 1.3 - 0.3 * Phase(m_MarkedAt, MarkTime), Running(),
                       colours);
        for (std::size_t side = 0; side < Cards.size(); ++side) {
            Painter.setPen({colours.edge, 2});
            Painter.setBrush(colours.ground);
            Painter.drawRoundedRect(Cards[side], 20, 20);
            Painter.setPen(colours.text);
            WriteLine(Painter, Cards[side].adjusted(20, 0, -20, 0), Qt::AlignCenter,
                      QString::number(m_Rules->Numbers()[side]), 84, QFont::Bold);
        }
        Painter.setPen(colours.text);
        WriteLine(Painter, Foot, Qt::AlignLeft | Qt::AlignVCenter, Word("Hint"), 20);
        WriteLine(Painter, Foot, Qt::AlignRight | Qt::AlignVCenter,
                  QStringLiteral("%1 %2").arg(Word("Points")).arg(Points()), 20, QFont::Bold);
    }

private:
    void Choose(int side)
    {
        const bool right = m_Rules->Choose(side);
        m_MarkedAt = Now();
        Animate(MarkTime);
        Tell();
        Play(right ? "right" : "wrong");
        Progress(100 * static_cast<int>(m_Rules->Done().size()) / Rounds);
        if (m_Rules->Over()) EndGame(); // nothing may follow: this game has been taken away
    }
    // What a screen reader says of it.
    void Tell() { setAccessibleName(QStringLiteral("%1 %2").arg(m_Rules->Numbers()[0]).arg(m_Rules->Numbers()[1])); }

    std::unique_ptr<MyRules> m_Rules;
    qint64 m_MarkedAt = 0; // [ms] on the game's own clock, which stands still while the game is hidden
};
} // namespace

// What the library exports; component.json lists the same class.
class MyComponent final : public QObject, public CGameComponent
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID NOGGLE_GAME_IID FILE "component.json")
    Q_INTERFACES(CGameComponent)

public:
    CGameArea *Create(const QString &ClassName, QWidget *Container) override
    {
        if (ClassName != u"MyGame.GameArea") return nullptr;
        return new MyArea(Container);
    }
};

#include "MyGame.moc"
