// What a sound device and its buffers share: device and context of the library, and the buffers that are alive. For
// SoundDevice.cpp and SoundBuffer.cpp alone.
//
// A device that is open mixes silence for ever, some ninety times a second. When nothing has played for a while it is
// put to rest, and the next effect wakes it; the while is long, since cards that slept may swallow a short click.
#pragma once

#include <AL/alc.h>

#include <QTimer>

#include <vector>

class SoundBuffer;

/// A device and its context; both empty where there is none.
struct OpenedSound
{
    ALCdevice *Device = nullptr;
    ALCcontext *Context = nullptr;
};

class SoundLine
{
public:
    /// Takes over the device. Failure: passed on, when the context can't be used; both are closed then.
    explicit SoundLine(const OpenedSound &Opened);
    ~SoundLine() { Close(); }
    SoundLine(const SoundLine &) = delete;
    SoundLine &operator=(const SoundLine &) = delete;

    /// Makes this the device that calls go to. Answer: false once it is closed.
    bool Reach() const;
    /// Sources, samples, context, device, in this order.
    void Close();

    void Enter(SoundBuffer *buffer) { m_Buffers.push_back(buffer); }
    void Leave(SoundBuffer *buffer);
    ALCdevice *Device() const { return m_Device; }

    /// Before something plays: the device goes on if it rested, and rests again later.
    void Wake();
    /// [ms] How long nothing has played before it rests.
    void SetRestAfter(int Milliseconds) { m_Rest.setInterval(Milliseconds); }
    bool IsResting() const { return m_Resting; }

private:
    void RestUnlessPlaying();

    ALCdevice *m_Device;
    ALCcontext *m_Context;
    std::vector<SoundBuffer *> m_Buffers;
    QTimer m_Rest;
    bool m_Resting = false;
};
