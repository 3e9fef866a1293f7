// Effects by name, loaded at first use and kept: the file is Path, "sounds/", the name, ".wav". Names match without
// regard to case. A missing file is silence, once and for all.
#pragma once

#include "platform/KeyedList.h"
#include "services/CSound.h"

class colSound
{
public:
    /// SoundOn: whether effects are heard, from the start; see SetSoundOn.
    explicit colSound(bool SoundOn) : m_SoundOn(SoundOn) {}

    /// The effect of that name. The reference holds as long as the list does and the effect is not removed.
    /// A name with a separator in it would leave the folder, and has no file.
    /// Failure: ignored step by step; a file that can't be read gives a silent effect, kept too.
    CSound &Item(const QString &Name);
    std::int32_t Count() const { return m_Sounds.Count(); }
    /// Failure: passed on, when no effect of that name was loaded.
    void Remove(const QString &Key) { m_Sounds.Remove(FileOf(Key)); }
    auto begin() const { return m_Sounds.begin(); }
    auto end() const { return m_Sounds.end(); }

    /// A folder, with the separator at its end.
    void SetPath(const QString &Path) { m_Path = Path; }
    /// Mutes or unmutes every effect loaded so far, and those to come.
    void SetSoundOn(bool SoundOn);

private:
    /// The name with its ending, which is also its key: an empty name has one, too.
    static QString FileOf(const QString &name) { return name + QStringLiteral(".wav"); }
    QString WavePath(const QString &name) const;

    KeyedList<CSound> m_Sounds;
    QString m_Path;
    bool m_SoundOn;
};
