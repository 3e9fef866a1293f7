// What the library exports.
#include "NinthArea.h"

class NinthTileComponent final : public QObject, public CGameComponent
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID NOGGLE_GAME_IID FILE "component.json")
    Q_INTERFACES(CGameComponent)

public:
    CGameArea *Create(const QString &ClassName, QWidget *Container) override
    {
        if (ClassName != u"NinthTile.GameArea") return nullptr;
        return new NinthArea(Container);
    }
};

#include "NinthTile.moc"
