#include "services/modDX.h"

#include "platform/PlainBox.h"
#include "platform/SoundDevice.h"
#include "platform/Step.h"

#include <memory>

namespace
{
constexpr int PriorityLevel = 2;

SoundDevice *inUse = nullptr;
bool toldOfNone = false;

/// The device that InitSound opened. When the process ends, effects that are destroyed later find no device.
struct Owner
{
    std::unique_ptr<SoundDevice> device;
    ~Owner() { inUse = nullptr; }
} owner;

void TellOfNone()
{
    if (toldOfNone) return;
    toldOfNone = true;
    ShowPlainBox(QStringLiteral("DirectX not found, sound effects will be disabled.\r\n"
                                "Please install DirectX 7 or higher\r\n"
                                "Where to get it is told at https://noggle.example.org/sound"),
                 PlainBoxIcon::Exclamation);
}
} // namespace

void modDX::PrepareSound()
{
    if (inUse == nullptr) Step([] { SoundDevice::Prepare(); });
}

void modDX::InitSound(QWidget *Form)
{
    if (inUse == nullptr) {
        Step([] { owner.device = SoundDevice::OpenDefault(); });
        inUse = owner.device.get();
    }
    if (inUse == nullptr) {
        Step(TellOfNone);
        return;
    }
    SetCooperativeLevel(Form, PriorityLevel);
}

void modDX::SetCooperativeLevel(QWidget *, int) {}

SoundDevice *modDX::Device() { return inUse; }

void modDX::SetDevice(SoundDevice *Device) { inUse = Device; }

void modDX::EndSound()
{
    inUse = nullptr;
    toldOfNone = false;
    owner.device.reset();
    SoundDevice::ForgetPrepared();
}
