#include "services/CSound.h"

#include "platform/SoundBuffer.h"
#include "platform/SoundDevice.h"
#include "services/modDX.h"

namespace
{
constexpr std::int32_t Halted = -1; // nothing to bring back
constexpr std::int32_t Loop = 1;

bool Loops(std::int32_t flags) { return (flags & Loop) != 0; }
} // namespace

CSound::CSound() = default;
CSound::~CSound() = default;

void CSound::LoadWave(const QString &FileName)
{
    if (modDX::Device() != nullptr) m_Buffer = modDX::Device()->Load(FileName);
}

SoundBuffer *CSound::Heard() const { return modDX::Device() != nullptr ? m_Buffer.get() : nullptr; }

void CSound::Play(std::int32_t Flags)
{
    SoundBuffer *buffer = Heard();
    if (buffer == nullptr) return;
    m_PlayFlags = Flags; // also while muted: unmuting starts a loop that was asked for in between
    if (!m_Muted) buffer->Restart(Loops(Flags));
}

void CSound::Halt()
{
    SoundBuffer *buffer = Heard();
    if (buffer == nullptr) return;
    m_PlayFlags = Halted;
    buffer->Stop();
}

void CSound::Mute(bool Value)
{
    SoundBuffer *buffer = Heard();
    if (buffer == nullptr) return;
    if (!Value) {
        if (m_PlayFlags == Loop) buffer->Resume(true);
    } else if (m_PlayFlags == Loop) {
        buffer->Pause();
    } else {
        buffer->Stop();
    }
    m_Muted = Value;
}

void CSound::ChangeVolume(std::int32_t Delta)
{
    SoundBuffer *buffer = Heard();
    if (buffer == nullptr) return;
    const std::int64_t wanted = std::int64_t{buffer->Volume()} + Delta;
    if (wanted >= m_MinVolume && wanted <= m_MaxVolume) buffer->SetVolume(static_cast<std::int32_t>(wanted));
}

std::int32_t CSound::Volume() const
{
    const SoundBuffer *buffer = Heard();
    return buffer != nullptr ? buffer->Volume() : 0;
}

void CSound::SetVolume(std::int32_t Value)
{
    if (SoundBuffer *buffer = Heard()) buffer->SetVolume(Value);
}
