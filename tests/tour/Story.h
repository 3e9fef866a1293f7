// The tour's story: a week with the program, told as a person lives it. What was seen on the screen is compared
// with what the store holds; what has to be there on the second day is kept in a file of the program's folder.
//
// Failure of every part: passed on, a TourFailure that says what was expected.
#pragma once

#include <QJsonObject>
#include <QString>
#include <QVariant>

#include <cstdint>

class Hands;

class Story
{
public:
    /// Stamina: how long a game of the workout is played by hand before its time is let run out. [s]
    Story(Hands &Hands, int Stamina) : m_Hands(Hands), m_Stamina(Stamina) {}

    /// A new player's first day: makes the player, does a workout, practises, ends the program.
    void DayOne();
    /// Everything is there again, the next workout is due, and each day of the week has its own: at the end stands
    /// the chart of them all.
    void RestOfTheWeek();

private:
    // day one
    void MakePlayer();
    void EditName();
    void BeginWorkout();
    void ReadInstructions();
    void PauseAndLeave();
    void PlayWorkout();

    // day two
    void FindPlayer();
    void FindPracticeResult();
    void FindWorkout();
    void BeginNextWorkout();

    // the days after it
    void FinishWorkout(int FirstTile, int Stamina);
    void LiveDay(int Day);
    void CompareWeek();
    void LookAtProgress();

    // a game of the workout
    struct Score
    {
        int points = 0, timeBonus = 0, levelBonus = 0, total = 0;
        bool star = false;
    };
    struct Offer
    {
        QString game; // its name
        QString row;  // "(0)", of the controls
        int level = 0;
        QVariantMap gameRow; // of the store
    };
    int Categories();
    Offer SelectCategory(int Tile);
    void PlayWorkoutGame(int Tile, int Stamina);
    Score WatchScore(const Offer &Offer);
    void CompareResult(const Offer &Offer, const Score &Score);
    void CompareState(const Offer &Offer, const QVariantMap &Before, bool Star);
    QVariantMap StateOf(const Offer &Offer) const;

    // practice
    void Practise();
    void MinimiseWhilePlaying();
    void ChooseForPractice();
    void CompareBestResult();

    void EndProgram();

    Hands &m_Hands;
    int m_Stamina;
    QString m_Name;         // the player's
    int m_Player = 0;       // the player's key
    bool m_Hurried = false; // a score's lines come up at once, since their pace was seen
    QJsonObject m_Seen;     // for the second day
};

/// Prints what was compared. Failure: passed on, a TourFailure with both, when they differ.
void Compare(const QString &What, const QVariant &Seen, const QVariant &Stored);
/// The first whole number in a text. Failure: passed on, when there is none.
int NumberIn(const QString &Text);
