// A program's folder with a real store and real game folders, for one test of the records.
#pragma once

#include "domain/colCategory.h"
#include "domain/colGame.h"
#include "domain/colPlayer.h"
#include "platform/KeyedList.h"
#include "platform/RuntimeError.h"
#include "shell/program/modMain.h"
#include "tests/support/RecordingFramework.h"
#include "tests/support/TestStore.h"

#include <gtest/gtest.h>

#include <QDateTime>
#include <QStringList>

void PrintTo(const QString &Text, std::ostream *Out);

/// The settings file of a game.
struct GameFile
{
    QByteArray Name;
    QByteArray Category;
    QByteArray TimeLimit = "60";
    QByteArray More = {}; // further lines

    QByteArray Text() const;
};

class DomainTest : public testing::Test
{
protected:
    DomainTest();
    ~DomainTest() override;

    /// Writes the "GameSettings.ini" of a folder.
    QString GivenGame(const QString &Folder, const GameFile &Game);
    /// Loads players, categories and games, as the start of the program does.
    void Start();
    /// Forgets all records and starts again on the same folder.
    void StartAgain();

    /// The rows of a statement in the store file, columns joined by "|", null as "null"; or joined by ";".
    QStringList Stored(const QString &Sql) const;
    QString StoredOne(const QString &Sql) const { return Stored(Sql).join(u';'); }

    /// Names of the games as the list has them, joined by " ".
    static QString Names(const colGame &Games);
    static std::shared_ptr<CGame> Game(const QString &StoredName);
    static std::shared_ptr<CPlayer> GivenCurrentPlayer();

    void SetTime(int Year, int Month, int Day, int Hour = 0, int Minute = 0, int Second = 0, int Millisecond = 0);
    /// Messages shown so far, first lines joined by "; ", and forgotten.
    QString TakeMessages();

    TestStore m_store;
    const TestFolder &m_folder = m_store.Folder();
    std::shared_ptr<RecordingFramework> m_framework;
};

/// Makes the n-th call of the store fail, counted from 1, until it goes out of scope.
class FailingCall
{
public:
    FailingCall(TestStore &Store, int Number) : m_Store(Store) { m_Store.FailAtCall(Number); }
    ~FailingCall() { m_Store.FailAtCall(0); }
    FailingCall(const FailingCall &) = delete;
    FailingCall &operator=(const FailingCall &) = delete;

private:
    TestStore &m_Store;
};
