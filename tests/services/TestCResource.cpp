#include "ResourceTest.h"
#include "platform/Files.h"

#include <QColor>
#include <QFile>
#include <QLineEdit>
#include <QVariant>

#include <cerrno>
#include <limits>
#include <unistd.h>

namespace
{
// Runs as a user without rights while it lives, since for the system's administrator no folder is read-only.
class AsAPlainUser
{
public:
    AsAPlainUser()
    {
        constexpr uid_t nobody = 65534;
        if (m_Before == 0 && seteuid(nobody) != 0) qFatal("the user can't be changed");
    }
    ~AsAPlainUser()
    {
        if (seteuid(m_Before) != 0) qFatal("the user can't be changed back");
    }
    AsAPlainUser(const AsAPlainUser &) = delete;
    AsAPlainUser &operator=(const AsAPlainUser &) = delete;

private:
    uid_t m_Before = geteuid();
};
} // namespace

TEST_F(CResourceTest, IdsBelowOneAreEmpty)
{
    EXPECT_EQ(Usual(0), QString());
    EXPECT_EQ(Usual(-1), QString());
    EXPECT_EQ(Usual(std::numeric_limits<std::int16_t>::min()), QString());
}

TEST_F(CResourceTest, ABufferWithoutRoomGivesNothing)
{
    EXPECT_EQ(m_Resources.GetString(1, 0), QString());
    EXPECT_EQ(m_Resources.GetString(1, -5), QString());
    EXPECT_EQ(m_Resources.GetString(1, 1), QString());
    EXPECT_EQ(m_Resources.GetString(1, 3), QStringLiteral("Te"));
}

TEST_F(CResourceTest, AMissingOrEmptyStringIsEmptyAndNothingElse)
{
    for (const std::int16_t id : {std::int16_t{2}, std::int16_t{4999}, std::int16_t{32767}})
        EXPECT_EQ(Usual(id), QString()) << id;
}

TEST_F(CResourceTest, BackslashAndSmallNBecomeALineBreak)
{
    EXPECT_EQ(Usual(106), QStringLiteral("a\r\nb"));
    EXPECT_EQ(Usual(107), QStringLiteral("a\\Nb"));
    EXPECT_EQ(Usual(108), QStringLiteral("a\nb")) << "a real line feed stays one";
}

TEST_F(CResourceTest, TheRawStringKeepsItsBackslash)
{
    QString text;
    EXPECT_TRUE(m_Resources.DLL_LoadString(106, text, UsualSize));
    EXPECT_EQ(text, QStringLiteral("a\\nb"));
    EXPECT_FALSE(m_Resources.DLL_LoadString(4999, text, UsualSize));
    EXPECT_EQ(text, QString());
}

TEST_F(CResourceTest, AStringEndsAfter255Characters)
{
    EXPECT_EQ(Usual(102), QString(255, u'x'));
    EXPECT_EQ(Usual(103), QString(255, u'x'));
    EXPECT_EQ(Usual(105), QString(255, u'y'));
}

TEST_F(CResourceTest, NoCharacterIsCutInHalf) { EXPECT_EQ(Usual(104), QString(254, u'x')); }

TEST_F(CResourceTest, TheCutComesBeforeTheLineBreaks)
{
    EXPECT_EQ(Usual(109), QString(254, u'x') + QStringLiteral("\\"));
}

TEST_F(CResourceTest, AccentsAndBlanksComeThrough)
{
    EXPECT_EQ(Usual(100), QStringLiteral("Größe é ñ Ω Ж 漢"));
    EXPECT_EQ(Usual(101), QStringLiteral("😀𝄞"));
    EXPECT_EQ(Usual(111), QStringLiteral(" blanks "));
}

TEST_F(CResourceTest, AMissingLibraryIsSilentAndBlanksEveryWord)
{
    EXPECT_NE(m_Resources.hLibrary(), 0);
    m_Resources.SetLibraryFilePath(Address("none.dll"));
    EXPECT_EQ(m_Resources.hLibrary(), 0);
    EXPECT_EQ(m_Resources.LibraryFilePath(), QString());
    EXPECT_EQ(Usual(1), QString());
    EXPECT_EQ(Data(1001, QStringLiteral("CUSTOM")), "(none)");
    EXPECT_TRUE(m_Resources.LoadJPEG(1001).isNull());
}

TEST_F(CResourceTest, AFolderOfThatNameIsAMissingLibrary)
{
    m_Folder.Write(QStringLiteral("0.dll/inside.txt"), "x");
    EXPECT_EQ(FailureOf([&] { m_Resources.SetLibraryFilePath(Address("0.dll")); }).Number, -1);
    EXPECT_EQ(m_Resources.hLibrary(), 0);
}

TEST_F(CResourceTest, ALibraryThatIsNoModuleFailsInTheseWords)
{
    const QString path = m_Folder.Write(QStringLiteral("0.dll"), "not a module");
    const Failure failure = FailureOf([&] { m_Resources.SetLibraryFilePath(path); });
    EXPECT_EQ(failure.Number, 193);
    EXPECT_EQ(failure.Source, QStringLiteral("cResource.LibraryFilePath_Let (") + path + u')');
    EXPECT_EQ(failure.Description, QStringLiteral("The LoadLibrary API failed with the error number 193 while trying "
                                                  "to load the file '") +
                                       path + u'\'');
}

TEST_F(CResourceTest, APathWithPercentMarksIsToldAsItIs)
{
    const QString path = m_Folder.Write(QStringLiteral("100%1 %2.dll"), "junk");
    EXPECT_TRUE(FailureOf([&] { m_Resources.SetLibraryFilePath(path); }).Description.endsWith(path + u'\''));
}

TEST_F(CResourceTest, ALibraryThatMayNotBeReadFailsWithTheSystemsNumber)
{
    const QString path = m_Folder.Write(QStringLiteral("0.dll"), ReadFile(Modules + QStringLiteral("all64.dll")));
    QFile::setPermissions(m_Folder.Path(), QFile::Permissions(0x7755));
    QFile::setPermissions(path, QFile::Permissions(0));
    const AsAPlainUser user;
    const Failure failure = FailureOf([&] { m_Resources.SetLibraryFilePath(path); });
    EXPECT_EQ(failure.Number, EACCES);
    EXPECT_TRUE(failure.Description.startsWith(
        QStringLiteral("The LoadLibrary API failed with the error number 13 while trying to load the file '")));
}

TEST_F(CResourceTest, AFailingLoadLeavesNoLibraryOpen)
{
    const QString path = m_Folder.Write(QStringLiteral("0.dll"), "junk");
    EXPECT_EQ(FailureOf([&] { m_Resources.SetLibraryFilePath(path); }).Number, 193);
    EXPECT_EQ(m_Resources.hLibrary(), 0);
    EXPECT_EQ(m_Resources.LibraryFilePath(), QString());
    EXPECT_EQ(Usual(1), QString());
}

TEST_F(CResourceTest, TheNameIsFoundWithoutRegardToLetterCase)
{
    m_Folder.Copy(Modules + QStringLiteral("all32.dll"), QStringLiteral("English.DLL"));
    m_Resources.SetLibraryFilePath(Address("english.dll"));
    EXPECT_EQ(Usual(17), QStringLiteral("Text 17"));
    EXPECT_EQ(m_Resources.LibraryFilePath(), Address("english.dll"));
}

TEST_F(CResourceTest, ClosingTwiceIsHarmless)
{
    m_Resources.CloseLibrary();
    m_Resources.CloseLibrary();
    EXPECT_EQ(m_Resources.hLibrary(), 0);
    EXPECT_EQ(m_Resources.LibraryFilePath(), QString());
    EXPECT_EQ(Usual(17), QString());
}

TEST_F(CResourceTest, ALibraryWithoutResourcesGivesEmptyStrings)
{
    Open("nothing.dll");
    EXPECT_NE(m_Resources.hLibrary(), 0);
    EXPECT_EQ(Usual(1), QString());
    EXPECT_TRUE(m_Resources.LoadJPEG(1001).isNull());
}

TEST_F(CResourceTest, RawDataNeedsALibraryAnIdAndAType)
{
    EXPECT_EQ(Data(1012, QStringLiteral("custom")), "neutral");
    EXPECT_EQ(Data(1013, QStringLiteral("#10")), "neutral");
    EXPECT_EQ(Data(1012, QString()), "(none)");
    EXPECT_EQ(Data(0, QStringLiteral("CUSTOM")), "(none)");
    EXPECT_EQ(Data(-1012, QStringLiteral("CUSTOM")), "(none)");
    EXPECT_EQ(Data(65536 + 1012, QStringLiteral("CUSTOM")), "(none)") << "an id is never narrowed";
    EXPECT_EQ(Data(1012, QStringLiteral("OTHER")), "(none)");
    m_Resources.CloseLibrary();
    EXPECT_EQ(Data(1012, QStringLiteral("CUSTOM")), "(none)");
}

TEST_F(CResourceTest, APictureIsReadAndItsFileIsGone)
{
    const QImage picture = m_Resources.LoadJPEG(1001);
    EXPECT_EQ(picture.size(), QSize(150, 150));
    EXPECT_EQ(EntriesOf(m_Folder.Path()), QStringList());
}

TEST_F(CResourceTest, AMissingPictureIsNoFailure)
{
    EXPECT_TRUE(m_Resources.LoadJPEG(1999).isNull());
    EXPECT_TRUE(m_Resources.LoadJPEG(0).isNull());
    EXPECT_TRUE(m_Resources.LoadJPEG(-1).isNull());
}

TEST_F(CResourceTest, ADamagedPictureFailsAndLeavesNoFile)
{
    for (const std::int16_t id : {std::int16_t{1003}, std::int16_t{1004}}) {
        const Failure failure = FailureOf([&] { m_Resources.LoadJPEG(id); });
        EXPECT_NE(failure.Number, -1) << id;
        EXPECT_TRUE(failure.Description.contains(QStringLiteral("%1.jpg").arg(id))) << id;
        EXPECT_EQ(EntriesOf(m_Folder.Path()), QStringList());
    }
}

TEST_F(CResourceTest, AReadOnlyProgramFolderFailsToTheCaller)
{
    QFile::setPermissions(m_Folder.Path(), QFile::Permissions(0x5555));
    Failure failure;
    {
        const AsAPlainUser user;
        failure = FailureOf([&] { m_Resources.LoadJPEG(1001); });
    }
    EXPECT_NE(failure.Number, -1);
    EXPECT_TRUE(failure.Description.contains(Address("1001.jpg")));
    EXPECT_EQ(EntriesOf(m_Folder.Path()), QStringList());
}

TEST_F(CResourceTest, SavingOverAFileWithoutOverwriteLeavesItAndIsTrue)
{
    const QString path = m_Folder.Write(QStringLiteral("data.bin"), "old");
    EXPECT_TRUE(m_Resources.SaveData_Pointer(path, "newer", 5, false));
    EXPECT_EQ(m_Folder.Read(QStringLiteral("data.bin")), "old");
    EXPECT_TRUE(m_Resources.SaveData_Array(path, "newer", false));
    EXPECT_EQ(m_Folder.Read(QStringLiteral("data.bin")), "old");
}

TEST_F(CResourceTest, SavingOverALongerFileLeavesNothingOfIt)
{
    const QString path = m_Folder.Write(QStringLiteral("data.bin"), "a long old content");
    EXPECT_TRUE(m_Resources.SaveData_Pointer(path, "n\0w", 3, true));
    EXPECT_EQ(m_Folder.Read(QStringLiteral("data.bin")), QByteArray("n\0w", 3));
}

TEST_F(CResourceTest, SavingTrimsTheName)
{
    EXPECT_TRUE(m_Resources.SaveData_Array(u' ' + Address("data.bin") + QStringLiteral("  "), "x", false));
    EXPECT_EQ(m_Folder.Read(QStringLiteral("data.bin")), "x");
}

TEST_F(CResourceTest, SavingNothingIsFalse)
{
    EXPECT_FALSE(m_Resources.SaveData_Pointer(QString(), "x", 1, true));
    EXPECT_FALSE(m_Resources.SaveData_Pointer(QStringLiteral("  "), "x", 1, true));
    EXPECT_FALSE(m_Resources.SaveData_Pointer(Address("a"), nullptr, 1, true));
    EXPECT_FALSE(m_Resources.SaveData_Pointer(Address("a"), "x", 0, true));
    EXPECT_FALSE(m_Resources.SaveData_Pointer(Address("a"), "x", -1, true));
    EXPECT_FALSE(m_Resources.SaveData_Array(Address("a"), {}, true));
    EXPECT_EQ(EntriesOf(m_Folder.Path()), QStringList());
}

TEST_F(CResourceTest, SavingWhereNothingCanBeWrittenFails)
{
    EXPECT_NE(FailureOf([&] { m_Resources.SaveData_Array(Address("none/data.bin"), "x", true); }).Number, -1);
    m_Folder.Write(QStringLiteral("folder/inside.txt"), "x");
    EXPECT_NE(FailureOf([&] { m_Resources.SaveData_Array(Address("folder"), "x", true); }).Number, -1);
}

TEST_F(CResourceTest, TheProgramItselfHasNoResources)
{
    QString text = QStringLiteral("before");
    QImage picture(1, 1, QImage::Format_RGB32);
    std::intptr_t handle = 7;
    const char *pointer = "before";
    std::int32_t size = 7;
    EXPECT_FALSE(m_Resources.RES_LoadString(17, text, UsualSize));
    EXPECT_FALSE(m_Resources.RES_LoadIcon(21, picture, handle));
    EXPECT_FALSE(m_Resources.RES_LoadCursor(22, picture, handle));
    EXPECT_FALSE(m_Resources.RES_LoadBitmap(23, picture, handle));
    EXPECT_FALSE(m_Resources.RES_LoadData(1012, pointer, size, QStringLiteral("CUSTOM")));
    EXPECT_EQ(text, QString());
    EXPECT_TRUE(picture.isNull());
    EXPECT_EQ(handle, 0);
    EXPECT_EQ(pointer, nullptr);
    EXPECT_EQ(size, 0);
}

TEST_F(CResourceTest, TaggedControlsAreBlanked)
{
    QWidget form;
    auto *tagged = new QLineEdit(QStringLiteral("before"), &form);
    tagged->setProperty("Tag", QStringLiteral("17"));
    tagged->setProperty("Caption", QStringLiteral("before"));
    auto *untagged = new QLineEdit(QStringLiteral("before"), &form);
    auto *odd = new QLineEdit(QStringLiteral("before"), &form);
    odd->setProperty("Tag", QStringLiteral("no number"));
    m_Resources.LoadResourceStrings(&form);
    m_Resources.LoadResourceStrings(nullptr);
    EXPECT_EQ(tagged->text(), QString());
    EXPECT_EQ(tagged->property("Caption").toString(), QString());
    EXPECT_EQ(untagged->text(), QStringLiteral("before"));
    EXPECT_EQ(odd->text(), QStringLiteral("before"));
}
