#include "tests/support/Records.h"

#include "domain/CGame.h"
#include "domain/CPlayer.h"
#include "domain/CPlayerGame.h"
#include "domain/CWorkout.h"
#include "domain/colCategory.h"
#include "domain/colGame.h"
#include "domain/colPlayer.h"
#include "shell/program/modMain.h"

void LoadRecords()
{
    modMain::Players = std::make_shared<colPlayer>();
    modMain::Categories = std::make_shared<colCategory>();
    modMain::Games = std::make_shared<colGame>();
    modMain::Players->Load();
    modMain::Categories->Load();
    modMain::Games->Load();
}

void ForgetRecords()
{
    modMain::CurrentPlayerGame.reset();
    modMain::CurrentWorkout.reset();
    modMain::CurrentGame.reset();
    modMain::CurrentPlayer.reset();
    modMain::Games.reset();
    modMain::Categories.reset();
    modMain::Players.reset();
}
