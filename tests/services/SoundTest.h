// Effects in a folder of their own, heard through a device that renders as many frames as it is asked for.
#pragma once

#include "platform/SoundDevice.h"
#include "services/colSound.h"
#include "services/modDX.h"
#include "tests/support/TestFolder.h"
#include "tests/support/WaveBytes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <vector>

// For who runs the test by hand, too.
[[maybe_unused]] inline const bool SilentDriver = qputenv("ALSOFT_DRIVERS", "null");

inline int FrameAt(const std::vector<float> &rendered, std::size_t frame)
{
    return static_cast<int>(std::lround(rendered[2 * frame] * 2048));
}

class Sounds : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_NE(m_Device, nullptr);
        modDX::SetDevice(m_Device.get());
        m_Sounds.SetPath(m_Folder.Path());
        Given("hum", RampWave(1000));
        Given("heart", SteadyWave(8192));
        Given("ding", RampWave(1000));
    }
    void TearDown() override { modDX::SetDevice(nullptr); }

    void Given(const char *name, const QByteArray &wave) const
    {
        m_Folder.Write(QStringLiteral("sounds/%1.wav").arg(QLatin1String(name)), wave);
    }
    CSound &Sound(const char *name) { return m_Sounds.Item(QLatin1String(name)); }
    /// The frame of the ramp that is heard next; 0 is silence.
    int Next() { return FrameAt(m_Device->Render(1), 0); }
    bool Silent(int frames = 3000)
    {
        const auto rendered = m_Device->Render(frames);
        return std::all_of(rendered.begin(), rendered.end(), [](float sample) { return sample == 0.0F; });
    }

    TestFolder m_Folder;
    std::unique_ptr<SoundDevice> m_Device = SoundDevice::OpenLoopback();
    colSound m_Sounds{true};
};
