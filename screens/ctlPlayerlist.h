// The opening choice: one wide button a player, in the players' order, and one more to add a player as long as there
// are fewer than eight. Players beyond eight are still listed: the limit bars adding, not showing.
#pragma once

#include "screens/Screen.h"

#include <vector>

class RowView;

class ctlPlayerlist final : public Screen
{
    Q_OBJECT

public:
    explicit ctlPlayerlist(QWidget *Container);

    /// Rebuilds the buttons. May be called from a button's own click: those that go are deleted later.
    void ListPlayers();
    void SkinUp();

Q_SIGNALS:
    /// The key of the player chosen; 0 asks for a new one.
    void Player(std::int32_t Key);

protected:
    void Arrange() override;

private:
    void DropButtons();
    void AddButton(const QString &Caption, std::int32_t Key);
    LarkButton *MakeButton();
    void Chosen(const LarkButton *Button);

    RowView *m_View;
    std::vector<LarkButton *> butPlayer;
};
