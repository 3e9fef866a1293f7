// One effect: a wave file in memory, played from its beginning, once or looping. Levels are hundredths of a decibel,
// 0 being full volume. Without a device, or without a loaded file, every operation does nothing.
#pragma once

#include <QString>

#include <cstdint>
#include <memory>

class SoundBuffer;

class CSound
{
public:
    CSound();
    ~CSound();
    CSound(const CSound &) = delete;
    CSound &operator=(const CSound &) = delete;

    /// Failure: passed on, when the file is missing or in a format that is not read.
    void LoadWave(const QString &FileName);
    /// 0 plays once, 1 loops; an effect that plays starts again from its beginning. Failure: ignored.
    void Play(std::int32_t Flags);
    /// Stops, and forgets that it played: unmuting does not bring it back.
    void Halt();
    /// Stops an effect where it stands; unmuting resumes a looping one there. A one-shot that was cut is gone.
    void Mute(bool Value);
    /// The loaded wave, or empty.
    SoundBuffer *DSBuffer() const { return m_Buffer.get(); }
    /// A relative step; one that would leave MinVolume to MaxVolume is refused, not clipped.
    void ChangeVolume(std::int32_t Delta);
    /// [1/100 dB] 0 without a buffer. Writing is not bounded.
    std::int32_t Volume() const;
    void SetVolume(std::int32_t Value);
    void SetMaxVolume(std::int32_t Value) { m_MaxVolume = Value; }
    void SetMinVolume(std::int32_t Value) { m_MinVolume = Value; }

private:
    /// The loaded wave while there is a device to play it, or empty.
    SoundBuffer *Heard() const;

    std::unique_ptr<SoundBuffer> m_Buffer;
    std::int32_t m_MaxVolume = 0;
    std::int32_t m_MinVolume = -4000;
    std::int32_t m_PlayFlags = -1;
    bool m_Muted = false;
};
