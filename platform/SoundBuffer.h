// The samples of one effect and the one source that plays them. Nothing here fails: where the device has gone, each
// operation does nothing.
#pragma once

#include <cstdint>
#include <memory>

class SoundLine;
struct WaveSound;

class SoundBuffer
{
public:
    /// Failure: passed on, when the device has no source or no memory left.
    SoundBuffer(std::shared_ptr<SoundLine> Line, const WaveSound &Sound);
    ~SoundBuffer();
    SoundBuffer(const SoundBuffer &) = delete;
    SoundBuffer &operator=(const SoundBuffer &) = delete;

    /// Plays from the beginning, also when it plays already.
    void Restart(bool Looping);
    /// Plays on from where it stands; what plays already is not touched but for the loop.
    void Resume(bool Looping);
    /// Stops and keeps the place.
    void Pause();
    /// Stops and goes back to the beginning.
    void Stop();

    /// [1/100 dB] As it was set. What comes out is never louder than 0 nor fainter than silence, at -10000.
    std::int32_t Volume() const { return m_Volume; }
    void SetVolume(std::int32_t Value);

    bool IsPlaying() const;
    /// [frames] 0 at the beginning and after the end.
    int Position() const;

    /// Gives source and samples back; the device does it before it closes.
    void Release();

private:
    /// True when there is a source; its device is then the one that calls go to.
    bool Reach() const;

    std::shared_ptr<SoundLine> m_Line;
    unsigned m_Source = 0;
    unsigned m_Samples = 0;
    std::int32_t m_Volume = 0;
};

/// The factor for a volume in hundredths of a decibel: 1 at 0 and above, exactly 0 at -10000 and below.
float GainOf(std::int32_t Volume);
