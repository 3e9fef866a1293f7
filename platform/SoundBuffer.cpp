#include "platform/SoundBuffer.h"

#include "platform/RuntimeError.h"
#include "platform/SoundLine.h"
#include "platform/WaveFile.h"

#include <AL/al.h>

#include <cmath>

namespace
{
constexpr std::int32_t Silence = -10000; // [1/100 dB]

ALint StateOf(unsigned source)
{
    ALint state = AL_INITIAL;
    alGetSourcei(source, AL_SOURCE_STATE, &state);
    return state;
}

void SetLooping(unsigned source, bool looping) { alSourcei(source, AL_LOOPING, looping ? AL_TRUE : AL_FALSE); }
} // namespace

float GainOf(std::int32_t Volume)
{
    if (Volume >= 0) return 1.0F;
    return Volume <= Silence ? 0.0F : static_cast<float>(std::pow(10.0, Volume / 2000.0));
}

SoundBuffer::SoundBuffer(std::shared_ptr<SoundLine> Line, const WaveSound &Sound) : m_Line(std::move(Line))
{
    if (!m_Line->Reach()) throw RuntimeError(QStringLiteral("The sound device has gone."));
    alGetError();
    alGenBuffers(1, &m_Samples);
    const auto bytes = static_cast<ALsizei>(Sound.Samples.size() * sizeof(std::int16_t));
    if (m_Samples != 0) alBufferData(m_Samples, AL_FORMAT_STEREO16, Sound.Samples.data(), bytes, Sound.Rate);
    alGenSources(1, &m_Source);
    if (m_Source != 0) alSourcei(m_Source, AL_BUFFER, static_cast<ALint>(m_Samples));
    if (alGetError() != AL_NO_ERROR) {
        Release();
        throw RuntimeError(QStringLiteral("The sound device takes no more effects."));
    }
    m_Line->Enter(this);
}

SoundBuffer::~SoundBuffer()
{
    m_Line->Leave(this);
    Release();
}

void SoundBuffer::Release()
{
    if (m_Line->Reach()) {
        if (m_Source != 0) alDeleteSources(1, &m_Source);
        if (m_Samples != 0) alDeleteBuffers(1, &m_Samples);
    }
    m_Source = m_Samples = 0;
}

bool SoundBuffer::Reach() const { return m_Source != 0 && m_Line->Reach(); }

void SoundBuffer::Restart(bool Looping)
{
    if (!Reach()) return;
    SetLooping(m_Source, Looping);
    alSourceRewind(m_Source);
    m_Line->Wake();
    alSourcePlay(m_Source);
}

void SoundBuffer::Resume(bool Looping)
{
    if (!Reach()) return;
    SetLooping(m_Source, Looping);
    // Starting what plays would take it back to its beginning.
    if (StateOf(m_Source) == AL_PLAYING) return;
    m_Line->Wake();
    alSourcePlay(m_Source);
}

void SoundBuffer::Pause()
{
    if (Reach()) alSourcePause(m_Source);
}

void SoundBuffer::Stop()
{
    if (Reach()) alSourceRewind(m_Source);
}

void SoundBuffer::SetVolume(std::int32_t Value)
{
    m_Volume = Value;
    if (Reach()) alSourcef(m_Source, AL_GAIN, GainOf(Value));
}

bool SoundBuffer::IsPlaying() const { return Reach() && StateOf(m_Source) == AL_PLAYING; }

int SoundBuffer::Position() const
{
    ALint frames = 0;
    if (Reach()) alGetSourcei(m_Source, AL_SAMPLE_OFFSET, &frames);
    return frames;
}
