#include "services/colSound.h"

#include "platform/Files.h"
#include "platform/Step.h"

#include <memory>

QString colSound::WavePath(const QString &name) const
{
    if (name.contains(u'/') || name.contains(u'\\')) return {};
    return FindFile(m_Path + QStringLiteral("sounds/") + FileOf(name));
}

CSound &colSound::Item(const QString &Name)
{
    if (const auto known = m_Sounds.Find(FileOf(Name))) return *known;
    const auto sound = std::make_shared<CSound>();
    Step([&] { sound->LoadWave(WavePath(Name)); });
    Step([&] { sound->Mute(!m_SoundOn); });
    m_Sounds.Add(sound, FileOf(Name));
    return *sound;
}

void colSound::SetSoundOn(bool SoundOn)
{
    m_SoundOn = SoundOn;
    for (const auto &sound : m_Sounds) sound->Mute(!SoundOn);
}
