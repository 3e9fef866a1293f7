// The screen of one player. Its first face lists the open workout, a row a category, with the points reached or a
// button to play; its second is the chart of the player's workouts, which covers the first.
#pragma once

#include "screens/Screen.h"

#include <functional>
#include <vector>

class CCategory;
class LarkChart;
class QPoint;
class RowView;
class cTransPictureBox;

class ctlUserInfo final : public Screen
{
    Q_OBJECT

public:
    explicit ctlUserInfo(QWidget *Container);

    /// 1 shows the workout, 2 the chart; any other Mode does nothing. Failure: passed on.
    void ShowDetails(std::int32_t Mode);
    /// Lists the open workout of the current player; nothing without one. Failure: passed on.
    void ShowWorkout();
    /// The chart of the current player's workouts, one step a workout, over the list; nothing without a player.
    /// Failure: passed on.
    void ShowWorkoutStats();
    /// The chart of the results by their time; nothing without a player. Failure: passed on.
    void ShowStats();
    /// Draws a chart that nobody sees, so that the first one which somebody asks for comes as fast as the others.
    /// Nothing once one was shown.
    void PrepareChart();
    /// Shows or hides the list; Complete comes with it when no row was open at the last listing.
    void ShowPanel(bool Visible);
    void SkinUp();

Q_SIGNALS:
    /// A game of that category is to be played, at level 1.
    void PlayGame(std::int32_t CategoryKey);

protected:
    void Arrange() override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    struct Row
    {
        cTransPictureBox *lblCategory;
        cTransPictureBox *lblScore;
        LarkButton *butGo;
    };

    Row &RowAt(std::size_t Index);
    bool ShowCategory(Row &Row, const CCategory &Category);
    void Complete();
    void MakeChart();
    void OfferToSave(const QPoint &At);
    void DrawSeries(const QString &Name, std::size_t Number, std::vector<double> X, std::vector<double> Y);
    using PointsOfCategory = std::function<std::vector<double>(const CCategory &)>;
    void DrawCategories(const std::vector<double> &Dates, const PointsOfCategory &PointsOf);
    void DrawChart(double From, double To, bool EvenSpacing);
    void ShowChart(double From, double To, bool EvenSpacing);
    void PlaceRow(const Row &Row);

    RowView *m_View;
    cTransPictureBox *lblWorkout;
    std::vector<Row> m_Rows;
    LarkButton *butComplete;
    LarkChart *LarkChart1;
    bool m_AllDone = false; // no row was open at the last listing
};
