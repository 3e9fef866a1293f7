// The sound device: OpenAL Soft, which plays on threads of its own. We only start and stop, from the interface
// thread, and never wait for sound.
//
// The device owns what plays: when it goes, each SoundBuffer made with it lets go of its source and its samples first
// and is silent from then on, so the two may be destroyed in any order.
#pragma once

#include <QString>

#include <memory>
#include <vector>

class SoundBuffer;
class SoundLine;

class SoundDevice
{
public:
    /// Begins to open the default device on a thread of its own; the next OpenDefault waits for it and takes it. Not
    /// before the application object is made, which changes the process's environment.
    static void Prepare();
    /// Closes what was prepared and not taken.
    static void ForgetPrepared();
    /// The desktop's default device, or empty where there is none.
    static std::unique_ptr<SoundDevice> OpenDefault();
    /// A device that plays into memory and has no clock: it moves only as Render asks. For tests. Or empty.
    static std::unique_ptr<SoundDevice> OpenLoopback();
    ~SoundDevice();
    SoundDevice(const SoundDevice &) = delete;
    SoundDevice &operator=(const SoundDevice &) = delete;

    /// A wave file with a source of its own, not yet playing, at full volume.
    /// Failure: passed on, when the file can't be read or the device has no source left.
    std::unique_ptr<SoundBuffer> Load(const QString &FileName);

    /// What a loopback device plays next: left and right in turn, 1.0 being full scale, nothing cut or shaped.
    std::vector<float> Render(int Frames);
    static constexpr int LoopbackRate = 44100; // [frames/s]
    /// More effects than this get no source.
    static constexpr int MaxEffects = 1024;

    /// [ms] How long nothing has played before the device rests and takes no processor time. Half a minute at first.
    void SetRestAfter(int Milliseconds);
    bool IsResting() const;

private:
    explicit SoundDevice(std::shared_ptr<SoundLine> line);
    std::shared_ptr<SoundLine> m_Line;
};
