// A chart of lines over numbered or dated points. Its settings are plain fields, and properties under the same names;
// nothing changes on the screen until Redraw. A chart without a point says so in its empty text.
#pragma once

#include <QFont>
#include <QImage>
#include <QList>
#include <QRect>
#include <QString>
#include <QStringList>
#include <QWidget>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

class ChartSurface;
class QLabel;

// One line. X and Y belong together by their place; what the longer one has beyond the other is not used.
struct ChartSeries
{
    QString Name;
    std::vector<double> X;   // [days], or any number when the chart has no text format
    std::vector<double> Y;   // -1e37 where a value is missing: the line breaks there
    std::int32_t Colour = 0; // 0x00BBGGRR
    int Thickness = 2;       // [px]
    int Style = 1;           // 1 to 6: solid, then dashes of five kinds, with marks of six shapes
    bool Marks = true;
};

class LarkChart : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(double xmin MEMBER xmin)
    Q_PROPERTY(double xmax MEMBER xmax)
    Q_PROPERTY(double ymax MEMBER ymax)
    Q_PROPERTY(bool autoscaley MEMBER autoscaley)
    Q_PROPERTY(bool evenspacing MEMBER evenspacing)
    Q_PROPERTY(QString xaxistextformat MEMBER xaxistextformat)
    Q_PROPERTY(bool xaxisverticaltext MEMBER xaxisverticaltext)
    Q_PROPERTY(double xgridspacing MEMBER xgridspacing)
    Q_PROPERTY(double ygridspacing MEMBER ygridspacing)
    Q_PROPERTY(int topmargin MEMBER topmargin)
    Q_PROPERTY(int bottommargin MEMBER bottommargin)
    Q_PROPERTY(int leftmargin MEMBER leftmargin)
    Q_PROPERTY(int rightmargin MEMBER rightmargin)
    Q_PROPERTY(bool showkey MEMBER showkey)
    Q_PROPERTY(int backcolour MEMBER backcolour)
    Q_PROPERTY(int plotbackcolour MEMBER plotbackcolour)
    Q_PROPERTY(int axiscolour MEMBER axiscolour)
    Q_PROPERTY(int gridcolour MEMBER gridcolour)
    Q_PROPERTY(int yaxistextcolour MEMBER yaxistextcolour)
    Q_PROPERTY(QFont chartfont MEMBER chartfont)
    Q_PROPERTY(QFont keyfont MEMBER keyfont)
    Q_PROPERTY(QFont xaxisfont MEMBER xaxisfont)
    Q_PROPERTY(QFont yaxisfont MEMBER yaxisfont)
    Q_PROPERTY(bool averages MEMBER averages)
    Q_PROPERTY(QString averagesnote MEMBER averagesnote)
    Q_PROPERTY(QString emptytext MEMBER emptytext)

public:
    explicit LarkChart(QWidget *Parent = nullptr);
    ~LarkChart() override;
    LarkChart(const LarkChart &) = delete;
    LarkChart &operator=(const LarkChart &) = delete;

    double xmin = 0; // points outside of xmin to xmax are not drawn
    double xmax = 30;
    double ymax = 200;        // the top of the scale without autoscaley, and of a chart without points
    bool autoscaley = true;   // the scale holds 0 and every point that is there
    bool evenspacing = false; // points stand one step apart by their number from 1; X is only their label
    QString xaxistextformat = QStringLiteral("dd-mmm-yy"); // of dates; empty for plain numbers
    bool xaxisverticaltext = true;
    double xgridspacing = 5;
    double ygridspacing = 20; // or a round multiple of it, where lines would stand too close
    // [px] Around the plot. Each grows where key or labels would be cut.
    int topmargin = 40;
    int bottommargin = 70;
    int leftmargin = 30;
    int rightmargin = 10;
    bool showkey = true;
    // 0x00BBGGRR
    std::int32_t backcolour = 0xFBF9F7;
    std::int32_t plotbackcolour = 0xFFFFFF;
    std::int32_t axiscolour = 0;
    std::int32_t gridcolour = 0;
    std::int32_t yaxistextcolour = 0;
    QFont chartfont; // of the empty text
    QFont keyfont;   // a smaller one is taken where it has no room
    QFont xaxisfont;
    QFont yaxisfont;
    // Where points lie too close to be told apart, they are dots, and the line is their mean; the note tells of how
    // many, "%1" being the number.
    bool averages = true;
    QString averagesnote = QStringLiteral("Ø %1");
    QString emptytext;

    /// The series of that name, made at the first asking. It stays where it is until Clear.
    ChartSeries &Series(const QString &Name);
    const std::vector<std::unique_ptr<ChartSeries>> &AllSeries() const { return m_Series; }
    /// Forgets all series.
    void Clear();
    /// Shows settings and series as they are now. Failure: passed on, where the chart's library is missing.
    void Redraw();

    /// [px] The area between the axes, as drawn last. Empty, and all places and scales 0, before the first Redraw.
    QRect PlotArea() const;
    /// [px] Where a point was drawn, or would have been; with evenspacing, X is its number.
    QPointF PlaceOf(double X, double Y) const;
    /// The scale of Y, as drawn last.
    double YFrom() const;
    double YTo() const;

    /// How many points a series has.
    static std::size_t Count(const ChartSeries &Series) { return std::min(Series.X.size(), Series.Y.size()); }
    /// Where a point stands on the X axis, its position counting from 0.
    double Along(const ChartSeries &Series, std::size_t Position) const
    {
        return evenspacing ? static_cast<double>(Position + 1) : Series.X[Position];
    }
    /// All values as a table for other programs: a row of names, XName the first, then a row for each place of the X
    /// axis from left to right. Dates as machines read them, all with their time when one has a time part; nothing
    /// where a value is missing.
    QList<QStringList> Table(const QString &XName) const;
    bool HasPoint() const;
    /// The chart as drawn last, twice as sharp as the screen, and without marks of the keyboard.
    QImage Picture() const;

    /// What is written at a place of the X axis; empty where nothing stands.
    virtual QString LabelAt(double Along) const;

Q_SIGNALS:
    void Click();

protected:
    bool event(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    void ShowEmptyText();
    QString TipAt(const QPoint &Place) const;
    QString Description() const;

    std::vector<std::unique_ptr<ChartSeries>> m_Series;
    std::unique_ptr<ChartSurface> m_Plot; // empty before the first Redraw
    QLabel *m_Empty;
    bool m_Pressed = false;
};
