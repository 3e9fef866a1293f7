#include "platform/Files.h"
#include "platform/ResourceModule.h"
#include "platform/RuntimeError.h"
#include "tests/support/TestFolder.h"

#include <QtEndian>

#include <gtest/gtest.h>

#include <array>
#include <cerrno>
#include <map>
#include <random>
#include <sys/stat.h>

namespace
{
const QString Modules = QStringLiteral(NOGGLE_TEST_MODULES "/");

QByteArray ModuleBytes(const char *name) { return ReadFile(Modules + QLatin1StringView(name)); }

// The strings that are not simply "Text n" in the test modules.
const std::map<int, QString> &SpecialStrings()
{
    static const std::map<int, QString> strings{
        {100, QStringLiteral("Größe é ñ Ω Ж 漢")},
        {101, QStringLiteral("😀𝄞")},
        {102, QString(255, u'x')},
        {103, QString(256, u'x')},
        {104, QString(254, u'x') + QStringLiteral("😀")},
        {105, QString(20000, u'y')},
        {106, QStringLiteral("a\\nb")},
        {107, QStringLiteral("a\\Nb")},
        {108, QStringLiteral("a\nb")},
        {109, QString(254, u'x') + QStringLiteral("\\n")},
        {110, QStringLiteral("say \"yes\"")},
        {111, QStringLiteral(" blanks ")},
    };
    return strings;
}

QString Told(const ResourceModule &module, int id)
{
    return module.String(static_cast<std::uint16_t>(id)).value_or(QStringLiteral("(none)"));
}

QByteArray Custom(const ResourceModule &module, std::uint32_t id, const QString &type = QStringLiteral("CUSTOM"))
{
    const auto bytes = module.Data(type, id);
    return bytes ? bytes->toByteArray() : QByteArray("(none)");
}

long NumberOfFailure(const QByteArray &bytes)
{
    try {
        ResourceModule::FromBytes(bytes);
    } catch (const RuntimeError &failure) {
        return failure.Number();
    }
    return 0;
}

// Everything that can be asked of a module, so that a wrong offset is met by a sanitizer.
qsizetype AskEverything(const ResourceModule &module)
{
    qsizetype asked = 0;
    for (const int id : {1, 16, 105, 4603, 5100, 65535})
        asked += module.String(static_cast<std::uint16_t>(id)).value_or(QString()).size();
    for (const int type : {2, 3, 14})
        for (const std::uint32_t id : {1U, 21U, 23U})
            if (const auto bytes = module.Data(static_cast<std::uint16_t>(type), id))
                asked += bytes->toByteArray().count('\0');
    for (const std::uint32_t id : {1001U, 1010U, 1011U, 1012U})
        if (const auto bytes = module.Data(QStringLiteral("CUSTOM"), id)) asked += bytes->toByteArray().count('\0');
    return asked;
}

class EveryCompiler : public testing::TestWithParam<const char *>
{
protected:
    const std::unique_ptr<ResourceModule> m_Module = ResourceModule::Load(Modules + QLatin1StringView(GetParam()));
};
INSTANTIATE_TEST_SUITE_P(ResourceModule, EveryCompiler, testing::Values("all64.dll", "all32.dll", "other.dll"));
} // namespace

TEST_P(EveryCompiler, EveryStringIsFoundUnderItsNumber)
{
    for (int id = 3; id <= 4603; ++id) {
        const auto special = SpecialStrings().find(id);
        const QString wanted =
            special != SpecialStrings().end() ? special->second : QStringLiteral("Text %1").arg(id);
        ASSERT_EQ(Told(*m_Module, id), wanted) << id;
    }
}

TEST_P(EveryCompiler, EmptyAndAbsentStringsAreNotThere)
{
    for (const int id : {0, 2, 4604, 4999, 6000, 65535}) EXPECT_FALSE(m_Module->String(std::uint16_t(id))) << id;
}

TEST_P(EveryCompiler, BytesOfAResourceComeBackUnchanged)
{
    EXPECT_EQ(Custom(*m_Module, 1001), ReadFile(Modules + QStringLiteral("sound.jpg")));
    EXPECT_EQ(Custom(*m_Module, 1012), "neutral");
}

TEST_P(EveryCompiler, TypeNamesCompareWithoutRegardToCase)
{
    EXPECT_EQ(Custom(*m_Module, 1012, QStringLiteral("custom")), "neutral");
    EXPECT_EQ(Custom(*m_Module, 1012, QStringLiteral("CuStOm")), "neutral");
    EXPECT_EQ(Custom(*m_Module, 1012, QStringLiteral("CUSTO")), "(none)");
    EXPECT_EQ(Custom(*m_Module, 1012, QStringLiteral("CUSTOMS")), "(none)");
}

TEST_P(EveryCompiler, ATypeMayBeGivenAsItsNumber)
{
    EXPECT_EQ(Custom(*m_Module, 1013, QStringLiteral("#10")), "neutral");
    EXPECT_EQ(m_Module->Data(std::uint16_t{10}, 1013)->toByteArray(), "neutral");
    EXPECT_EQ(Custom(*m_Module, 1013, QStringLiteral("#ten")), "(none)");
    EXPECT_EQ(Custom(*m_Module, 1013, QStringLiteral("#")), "(none)");
}

TEST_P(EveryCompiler, NumbersThatNoResourceCanHaveAreNotThere)
{
    for (const std::uint32_t id : {0U, 65536U + 1001U, 0x80000000U, 0xffffffffU})
        EXPECT_EQ(Custom(*m_Module, id), "(none)") << id;
}

TEST_P(EveryCompiler, TheNeutralLanguageComesFirst)
{
    EXPECT_EQ(Custom(*m_Module, 1010), "neutral");
    EXPECT_EQ(Custom(*m_Module, 1015), "neutral") << "also where another one is listed before it";
    EXPECT_EQ(Told(*m_Module, 5100), QStringLiteral("neutral"));
}

TEST_P(EveryCompiler, WithoutANeutralLanguageTheFirstListedIsTaken)
{
    EXPECT_EQ(Custom(*m_Module, 1011), "german");
    EXPECT_EQ(Told(*m_Module, 5000), QStringLiteral("german"));
}

// A block of 16 strings is one resource, so its language is chosen for all of them.
TEST_P(EveryCompiler, AStringThatOnlyAnotherLanguageHasIsNotBorrowed) { EXPECT_FALSE(m_Module->String(5101)); }

TEST(ResourceModule, AModuleWithoutResourcesLoadsAndHoldsNothing)
{
    const auto module = ResourceModule::FromBytes(ModuleBytes("nothing.dll"));
    EXPECT_FALSE(module->String(1));
    EXPECT_EQ(Custom(*module, 1001), "(none)");
    EXPECT_FALSE(module->Data(std::uint16_t{14}, 1));
}

TEST(ResourceModule, WhatIsNoModuleFailsWithNumber193)
{
    EXPECT_EQ(NumberOfFailure({}), 193);
    EXPECT_EQ(NumberOfFailure("MZ"), 193);
    EXPECT_EQ(NumberOfFailure("plain text"), 193);
    EXPECT_EQ(NumberOfFailure(QByteArray(100000, '\0')), 193);
    EXPECT_EQ(NumberOfFailure(ReadFile(Modules + QStringLiteral("sound.jpg"))), 193);
}

TEST(ResourceModule, AFolderIsNoModule)
{
    const TestFolder folder;
    try {
        ResourceModule::Load(folder.Path());
        FAIL() << "loaded";
    } catch (const RuntimeError &failure) {
        EXPECT_EQ(failure.Number(), 193);
    }
}

TEST(ResourceModule, APipeIsNoModuleAndIsNotWaitedFor)
{
    const TestFolder folder;
    const QString path = folder.Path() + QStringLiteral("pipe.dll");
    ASSERT_EQ(mkfifo(path.toUtf8().constData(), 0600), 0);
    try {
        ResourceModule::Load(path);
        FAIL() << "loaded";
    } catch (const RuntimeError &failure) {
        EXPECT_EQ(failure.Number(), 193);
    }
}

TEST(ResourceModule, AMissingFileFailsWithTheSystemsNumber)
{
    const TestFolder folder;
    try {
        ResourceModule::Load(folder.Path() + QStringLiteral("none.dll"));
        FAIL() << "loaded";
    } catch (const RuntimeError &failure) {
        EXPECT_EQ(failure.Number(), ENOENT);
    }
}

TEST(ResourceModule, AFileThatIsCutShortInAnythingThatCountsIsNoModule)
{
    const QByteArray sound = ModuleBytes("all64.dll");
    for (qsizetype length = 0; length < sound.size() - 1024; length += 97)
        ASSERT_EQ(NumberOfFailure(sound.first(length)), 193) << length;
}

TEST(ResourceModule, NoTruncatedModuleIsReadBeyondItsEnd)
{
    const QByteArray sound = ModuleBytes("all32.dll");
    qsizetype loaded = 0;
    for (qsizetype length = sound.size() - 2048; length <= sound.size(); ++length) {
        try {
            // A copy of the exact size, so that one byte too many is seen by the sanitizer.
            const auto module = ResourceModule::FromBytes(QByteArray(sound.constData(), length));
            EXPECT_GT(AskEverything(*module), 0);
            ++loaded;
        } catch (const RuntimeError &failure) {
            ASSERT_EQ(failure.Number(), 193);
        }
    }
    EXPECT_GE(loaded, 1) << "the whole file at least";
}

// Half of the changes hit the headers and the first tables, where they lead furthest astray.
TEST(ResourceModule, TwentyThousandDamagedModulesAreReadWithoutHarm)
{
    constexpr int changedFiles = 20000;
    std::mt19937 random(20261121);
    const QByteArray sound = ModuleBytes("all64.dll");
    const auto tables = sound.indexOf(".rsrc");
    ASSERT_GT(tables, 0);
    const auto firstTable = qFromLittleEndian<std::uint32_t>(sound.constData() + tables + 20);
    QByteArray bytes = sound;
    int loaded = 0;
    const auto below = [&](std::uint32_t end) { return static_cast<std::uint32_t>(random() % end); };
    for (int i = 0; i < changedFiles; ++i) {
        std::map<qsizetype, char> changed;
        for (std::uint32_t n = 1 + below(8); n > 0; --n) {
            const std::array<qsizetype, 3> offsets{below(1024), firstTable + below(16384),
                                                   below(static_cast<std::uint32_t>(sound.size()))};
            const std::array values{'\0', '\xff', '\x80', '\x7f', static_cast<char>(below(256))};
            const qsizetype at = offsets.at(below(offsets.size()));
            changed.try_emplace(at, bytes[at]);
            bytes[at] = values.at(below(values.size()));
        }
        try {
            AskEverything(*ResourceModule::FromBytes(bytes));
            ++loaded;
        } catch (const RuntimeError &failure) {
            ASSERT_EQ(failure.Number(), 193);
        }
        for (const auto &[at, value] : changed) bytes[at] = value;
    }
    EXPECT_EQ(bytes, sound);
    EXPECT_GT(loaded, changedFiles / 4) << "most changes should get past the first header";
    EXPECT_LT(loaded, changedFiles);
}

// Each entry of the first table leads back to the first table: the depth is told by the program, not by the file.
TEST(ResourceModule, ATableThatLeadsBackToItselfEnds)
{
    QByteArray bytes = ModuleBytes("all64.dll");
    const auto header = bytes.indexOf(".rsrc");
    const qsizetype table = qFromLittleEndian<std::uint32_t>(bytes.constData() + header + 20);
    const int entries = qFromLittleEndian<std::uint16_t>(bytes.constData() + table + 12) +
                        qFromLittleEndian<std::uint16_t>(bytes.constData() + table + 14);
    ASSERT_GT(entries, 3);
    for (qsizetype i = 0; i < entries; ++i) qToLittleEndian(0x80000000U, bytes.data() + table + 16 + 8 * i + 4);
    EXPECT_EQ(AskEverything(*ResourceModule::FromBytes(bytes)), 0);
}
