// Resource modules that were made by several resource compilers, opened through the class that serves the program.
#pragma once

#include "platform/RuntimeError.h"
#include "services/CResource.h"
#include "tests/support/TestFolder.h"

#include <gtest/gtest.h>

#include <functional>

inline const QString Modules = QStringLiteral(NOGGLE_TEST_MODULES "/");
inline constexpr std::int32_t UsualSize = 256;

// What a failing routine tells; the number is -1 when it did not fail.
struct Failure
{
    long Number = -1;
    QString Source, Description;
};

inline Failure FailureOf(const std::function<void()> &work)
{
    try {
        work();
    } catch (const RuntimeError &error) {
        return {error.Number(), error.Source(), error.Description()};
    }
    return {};
}

class CResourceTest : public testing::Test
{
protected:
    CResourceTest() { Open("all64.dll"); }
    void Open(const char *module) { m_Resources.SetLibraryFilePath(Modules + QLatin1StringView(module)); }
    QString Usual(std::int16_t id) const { return m_Resources.GetString(id, UsualSize); }
    QByteArray Data(std::int32_t id, const QString &type) const
    {
        const char *pointer = nullptr;
        std::int32_t size = -1;
        if (m_Resources.DLL_LoadData(id, pointer, size, type)) return {pointer, size};
        EXPECT_EQ(pointer, nullptr);
        EXPECT_EQ(size, 0);
        return "(none)";
    }
    QString Address(const char *name) const { return m_Folder.Path() + QLatin1StringView(name); }

    const TestFolder m_Folder;
    CResource m_Resources;
};
