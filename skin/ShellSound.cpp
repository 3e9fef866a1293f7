#include "skin/ShellSound.h"

#include "platform/Step.h"
#include "services/colSound.h"
#include "shell/program/modMain.h"

void PlayShellSound(const QString &Name)
{
    if (modMain::ShellSounds) Step([&] { modMain::ShellSounds->Item(Name).Play(0); });
}
