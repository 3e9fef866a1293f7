// What the library exports.
#include "TurnArea.h"

class TurnOrMirrorComponent final : public QObject, public CGameComponent
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID NOGGLE_GAME_IID FILE "component.json")
    Q_INTERFACES(CGameComponent)

public:
    CGameArea *Create(const QString &ClassName, QWidget *Container) override
    {
        if (ClassName != u"TurnOrMirror.GameArea") return nullptr;
        return new TurnArea(Container);
    }
};

#include "TurnOrMirror.moc"
