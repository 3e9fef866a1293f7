#include "platform/SoundDevice.h"

#include "platform/RuntimeError.h"
#include "platform/SoundBuffer.h"
#include "platform/SoundLine.h"
#include "platform/Step.h"
#include "platform/WaveFile.h"

#include <AL/alext.h>
#ifdef NOGGLE_ALSA
#include <alsa/asoundlib.h>
#endif

#include <algorithm>
#include <future>

namespace
{
/// Extensions are asked for by name; what is not there is empty.
template <typename Function>
Function Extension(const char *name)
{
    return reinterpret_cast<Function>(alcGetProcAddress(nullptr, name));
}

constexpr int HalfAMinute = 30000; // [ms]

#ifdef NOGGLE_ALSA
void SayNothing(const char *, int, const char *, int, const char *, ...) {}
#endif

/// Where there is no sound card, ALSA tells the console so for each way it tried; the player is told in our own box.
ALCdevice *OpenDefaultDevice()
{
#ifdef NOGGLE_ALSA
    snd_lib_error_set_handler(SayNothing);
#endif
    ALCdevice *device = alcOpenDevice(nullptr);
#ifdef NOGGLE_ALSA
    snd_lib_error_set_handler(nullptr);
#endif
    return device;
}

ALCdevice *OpenLoopbackDevice()
{
    if (alcIsExtensionPresent(nullptr, "ALC_SOFT_loopback") == ALC_FALSE) return nullptr;
    const auto open = Extension<LPALCLOOPBACKOPENDEVICESOFT>("alcLoopbackOpenDeviceSOFT");
    return open != nullptr ? open(nullptr) : nullptr;
}

// No effect has a place in the room: without a filter for the head, stereo comes out as it was recorded, and nothing
// is sent to an echo, for which the library would keep room in each voice.
const std::vector<ALCint> RealAttributes{
    ALC_STEREO_SOURCES, SoundDevice::MaxEffects, ALC_HRTF_SOFT, ALC_FALSE, ALC_MAX_AUXILIARY_SENDS, 0, 0};
// Floating samples are neither cut nor dithered; the limiter would look ahead and shape what is measured.
const std::vector<ALCint> LoopbackAttributes{ALC_FORMAT_CHANNELS_SOFT,
                                             ALC_STEREO_SOFT,
                                             ALC_FORMAT_TYPE_SOFT,
                                             ALC_FLOAT_SOFT,
                                             ALC_FREQUENCY,
                                             SoundDevice::LoopbackRate,
                                             ALC_OUTPUT_LIMITER_SOFT,
                                             ALC_FALSE,
                                             ALC_STEREO_SOURCES,
                                             SoundDevice::MaxEffects,
                                             ALC_HRTF_SOFT,
                                             ALC_FALSE,
                                             0};

// On any thread. The library makes room for many effects at once and clears it, which is what takes long.
OpenedSound Opened(ALCdevice *device, const std::vector<ALCint> &attributes)
{
    if (device == nullptr) return {};
    if (ALCcontext *const context = alcCreateContext(device, attributes.data())) return {device, context};
    alcCloseDevice(device);
    return {};
}

OpenedSound OpenedDefault() { return Opened(OpenDefaultDevice(), RealAttributes); }

std::future<OpenedSound> ahead; // what Prepare began to open

std::shared_ptr<SoundLine> LineOf(const OpenedSound &opened)
{
    std::shared_ptr<SoundLine> line;
    if (opened.Device != nullptr) Step([&] { line = std::make_shared<SoundLine>(opened); });
    return line;
}
} // namespace

SoundDevice::SoundDevice(std::shared_ptr<SoundLine> line) : m_Line(std::move(line)) {}

SoundDevice::~SoundDevice() { m_Line->Close(); }

void SoundDevice::Prepare() { ahead = std::async(std::launch::async, OpenedDefault); }

void SoundDevice::ForgetPrepared()
{
    if (ahead.valid()) LineOf(ahead.get()); // whose end closes it
}

std::unique_ptr<SoundDevice> SoundDevice::OpenDefault()
{
    auto line = LineOf(ahead.valid() ? ahead.get() : OpenedDefault());
    return line ? std::unique_ptr<SoundDevice>(new SoundDevice(std::move(line))) : nullptr;
}

std::unique_ptr<SoundDevice> SoundDevice::OpenLoopback()
{
    auto line = LineOf(Opened(OpenLoopbackDevice(), LoopbackAttributes));
    return line ? std::unique_ptr<SoundDevice>(new SoundDevice(std::move(line))) : nullptr;
}

std::unique_ptr<SoundBuffer> SoundDevice::Load(const QString &FileName)
{
    return std::make_unique<SoundBuffer>(m_Line, ReadWaveFile(FileName));
}

std::vector<float> SoundDevice::Render(int Frames)
{
    static const auto render = Extension<LPALCRENDERSAMPLESSOFT>("alcRenderSamplesSOFT");
    std::vector<float> samples(static_cast<std::size_t>(Frames) * 2);
    if (render != nullptr) render(m_Line->Device(), samples.data(), Frames);
    return samples;
}

void SoundDevice::SetRestAfter(int Milliseconds) { m_Line->SetRestAfter(Milliseconds); }

bool SoundDevice::IsResting() const { return m_Line->IsResting(); }

SoundLine::SoundLine(const OpenedSound &Opened) : m_Device(Opened.Device), m_Context(Opened.Context)
{
    m_Rest.setInterval(HalfAMinute);
    m_Rest.setSingleShot(true);
    QObject::connect(&m_Rest, &QTimer::timeout, [this] { RestUnlessPlaying(); });
    if (Reach()) {
        Wake();
        return;
    }
    alcDestroyContext(m_Context);
    alcCloseDevice(m_Device);
    throw RuntimeError(QStringLiteral("The sound device can't be used."));
}

bool SoundLine::Reach() const
{
    if (m_Context == nullptr) return false;
    return alcGetCurrentContext() == m_Context || alcMakeContextCurrent(m_Context) == ALC_TRUE;
}

void SoundLine::Wake()
{
    static const auto resume = Extension<LPALCDEVICERESUMESOFT>("alcDeviceResumeSOFT");
    if (m_Resting && resume != nullptr) resume(m_Device);
    m_Resting = false;
    m_Rest.start();
}

void SoundLine::RestUnlessPlaying()
{
    static const auto pause = Extension<LPALCDEVICEPAUSESOFT>("alcDevicePauseSOFT");
    if (m_Context == nullptr || pause == nullptr) return;
    const auto plays = [](const SoundBuffer *buffer) { return buffer->IsPlaying(); };
    if (std::any_of(m_Buffers.begin(), m_Buffers.end(), plays)) {
        m_Rest.start();
        return;
    }
    pause(m_Device);
    m_Resting = true;
}

void SoundLine::Close()
{
    if (m_Context == nullptr) return;
    m_Rest.stop();
    const std::vector<SoundBuffer *> buffers = std::move(m_Buffers);
    m_Buffers.clear();
    for (SoundBuffer *buffer : buffers) buffer->Release();
    if (alcGetCurrentContext() == m_Context) alcMakeContextCurrent(nullptr);
    alcDestroyContext(m_Context);
    alcCloseDevice(m_Device);
    m_Context = nullptr;
    m_Device = nullptr;
}

void SoundLine::Leave(SoundBuffer *buffer) { std::erase(m_Buffers, buffer); }
