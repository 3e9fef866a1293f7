#include "shell/GameLibraries.h"

#include "platform/Files.h"
#include "platform/RuntimeError.h"
#include "sdk/CGameArea.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QLibrary>
#include <QPluginLoader>

#include <map>
#include <optional>

namespace
{
// Why a class could not be had; the highest reason seen is the one that helps the player most.
enum class Reason { NotFound, Damaged, OtherKind, CannotLoad, OtherQt, OtherVersion };

const std::map<Reason, QString> &Sentences() // %1 the class, %2 the file
{
    static const std::map<Reason, QString> sentences{
        {Reason::NotFound, QStringLiteral("The component \"%1\" is not installed: no library in the game's folder "
                                          "or among the shared components offers it.")},
        {Reason::Damaged, QStringLiteral("The component \"%1\" can't be used: the library \"%2\" is damaged or "
                                         "made for another kind of machine.")},
        {Reason::OtherKind, QStringLiteral("The component \"%1\" can't be used: the library \"%2\" is no game.")},
        {Reason::CannotLoad, QStringLiteral("The component \"%1\" can't be used: the library \"%2\" needs something "
                                            "that is missing on this machine.")},
        {Reason::OtherQt, QStringLiteral("The component \"%1\" can't be used: the library \"%2\" was built with "
                                         "another version of Qt than this program.")},
        {Reason::OtherVersion, QStringLiteral("The component \"%1\" can't be used: the library \"%2\" was made for "
                                              "another version of this program.")},
    };
    return sentences;
}

struct Refusal
{
    Reason reason = Reason::NotFound;
    QString file;

    void Note(Reason other, const QString &path)
    {
        if (other <= reason) return;
        reason = other;
        file = path.section(u'/', -1);
    }
    [[noreturn]] void Fail(const QString &className) const
    {
        QString sentence = Sentences().at(reason);
        if (reason != Reason::NotFound) sentence.replace(QStringLiteral("%2"), file);
        throw RuntimeError(sentence.replace(QStringLiteral("%1"), className));
    }
};

std::map<QString, GameMaker> &Registered()
{
    static std::map<QString, GameMaker> registered;
    return registered;
}

QStringList LibrariesIn(const QString &folder)
{
    if (folder.isEmpty()) return {}; // not the folder that happens to be the present one
    const QString path = folder.endsWith(u'/') ? folder : folder + u'/';
    QStringList libraries;
    for (const QString &entry : SortedEntriesOf(path)) {
        if (QLibrary::isLibrary(entry) && FileExists(path + entry)) libraries.append(path + entry);
    }
    return libraries;
}

bool Offers(const QJsonObject &metaData, const QString &className)
{
    const QJsonArray classes =
        metaData.value(QStringLiteral("MetaData")).toObject().value(QStringLiteral("classes")).toArray();
    return classes.contains(className);
}

// Qt keeps its own version in the metadata, major and minor as 0xMMmm00.
bool IsOfAnotherQt(const QJsonObject &metaData)
{
    const int version = metaData.value(QStringLiteral("version")).toInt();
    return (version >> 16) != QT_VERSION_MAJOR || ((version >> 8) & 0xff) > QT_VERSION_MINOR;
}

/// The reason against the library, or empty when it offers the class and may be loaded. Nothing is loaded here.
std::optional<Reason> Judge(const QJsonObject &metaData, const QString &className)
{
    const QString iid = metaData.value(QStringLiteral("IID")).toString();
    if (metaData.isEmpty()) return Reason::Damaged;
    if (!iid.startsWith(QStringLiteral(NOGGLE_GAME_IID_STEM))) return Reason::OtherKind;
    if (!Offers(metaData, className)) return Reason::NotFound;
    if (iid != QStringLiteral(NOGGLE_GAME_IID)) return Reason::OtherVersion;
    if (IsOfAnotherQt(metaData)) return Reason::OtherQt;
    return {};
}

/// Empty when the library can't be used, which is noted.
GameMaker MakerFrom(const QString &path, const QString &className, Refusal &refusal)
{
    QPluginLoader loader(path);
    if (const auto reason = Judge(loader.metaData(), className)) {
        refusal.Note(*reason, path);
        return {};
    }
    auto *component = qobject_cast<CGameComponent *>(loader.instance());
    if (component == nullptr) {
        refusal.Note(Reason::CannotLoad, path);
        return {};
    }
    return [component, className](QWidget *container) { return component->Create(className, container); };
}
} // namespace

void RegisterGame(const QString &ClassName, GameMaker Maker)
{
    if (Maker)
        Registered()[ClassName] = std::move(Maker);
    else
        Registered().erase(ClassName);
}

GameMaker FindGameMaker(const QString &ClassName, const QString &GameFolder)
{
    if (const auto known = Registered().find(ClassName); known != Registered().end()) return known->second;

    Refusal refusal;
    for (const QString &path : LibrariesIn(GameFolder)) {
        if (GameMaker maker = MakerFrom(path, ClassName, refusal)) return maker;
    }
    // A shared component says nothing about this game unless it offers the class.
    Refusal shared;
    for (const QString &path : LibrariesIn(ProgramFolder() + QStringLiteral("components/"))) {
        if (GameMaker maker = MakerFrom(path, ClassName, shared)) return maker;
    }
    if (shared.reason >= Reason::CannotLoad) refusal.Note(shared.reason, shared.file);
    refusal.Fail(ClassName);
}
