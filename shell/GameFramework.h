// The service object as one game gets it: every call goes on to the program's own while the game is hosted, and does
// nothing once it has been taken away. A timer or a second window of a game may call long after the game has gone, so
// each game has a forwarder of its own and none is ever deleted.
#pragma once

#include "sdk/CNoggleFramework.h"

#include <memory>

/// What a game, its host and its forwarder know in common.
struct GameTie
{
    bool Hosted = true;
    bool Unloading = false; // "unload" has been sent
    int Depth = 0; // verbs and framework calls under way: while there are any, code of the game is on the stack
};

class GameFramework final : public CNoggleFramework
{
public:
    /// A new forwarder, kept to the end of the process.
    static GameFramework *For(const std::shared_ptr<GameTie> &Tie);

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
    explicit GameFramework(std::shared_ptr<GameTie> tie) : m_Tie(std::move(tie)) {}

    std::shared_ptr<GameTie> m_Tie;
};
