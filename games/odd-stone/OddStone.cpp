// What the library exports.
#include "StoneArea.h"

class OddStoneComponent final : public QObject, public CGameComponent
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID NOGGLE_GAME_IID FILE "component.json")
    Q_INTERFACES(CGameComponent)

public:
    CGameArea *Create(const QString &ClassName, QWidget *Container) override
    {
        if (ClassName != u"OddStone.GameArea") return nullptr;
        return new StoneArea(Container);
    }
};

#include "OddStone.moc"
