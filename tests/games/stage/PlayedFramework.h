// The shell's side of a session for tests of games alone: keeps what the game told, answers from its real settings
// file, and draws a light or a dark background.
#pragma once

#include "sdk/CNoggleFramework.h"

#include <QColor>
#include <QStringList>

#include <functional>
#include <map>
#include <memory>

class PlayedFramework final : public CNoggleFramework
{
public:
    /// Makes one and sets it as the program's Framework.
    static std::shared_ptr<PlayedFramework> Install(const QString &GameFolder);

    QStringList Calls; // "progress 50", "playsound right", "gameover", "SetPlayerGameInfo 1 text" in their order
    std::map<std::int32_t, QString> Info;
    QString Pace; // what "pace" in "config" says, where it is told here
    QColor Top = QColor(0xfa, 0xfd, 0xfb);
    QColor Bottom = QColor(0xe0, 0xf0, 0xe8);
    std::function<void()> GameOver;            // what the shell does with "gameover"
    std::function<std::int32_t()> AnswerToBox; // what a player does with a box; OK when empty

    /// How often a call with that start was made.
    int Count(const QString &Call) const;
    /// The number behind the last call of that name, or -1.
    int Last(const QString &Cmd) const;

    void SkinButton(QObject *But, const QString &Name) override;
    void SkinPicbox(QObject *Pic, const QString &Name) override;
    std::int32_t MsgBox(const QString &Message, std::int32_t Options, QWidget *Parent, QString *Answer,
                        std::int32_t FontSize) override;
    void ShowError(const QString &Message, const QString &ErrDesc, QWidget *Parent) override;
    QVariant Message(const QString &Cmd, const QVariant &Info1, const QVariant &Info2) override;
    QString PlayerGameInfo(std::int32_t Level) override;
    void SetPlayerGameInfo(std::int32_t Level, const QString &Value) override;
    void DrawBackground(QPainter *DestHDC) override;
    QImage GetPicture(const QString &PicName) override;
    QString Lang() override;
    QString GetString(std::int32_t Index) override;
    QString GetSetting(const QString &Section, const QString &Name) override;
    void SaveSetting(const QString &Section, const QString &Name, const QString &Value) override;
    QString LangString(const QString &Name) override;
    bool OnlineFlag() override;

private:
    QString m_GameFolder;
};
