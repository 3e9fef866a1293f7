// What the library exports.
#include "HoldArea.h"

class HoldBackComponent final : public QObject, public CGameComponent
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID NOGGLE_GAME_IID FILE "component.json")
    Q_INTERFACES(CGameComponent)

public:
    CGameArea *Create(const QString &ClassName, QWidget *Container) override
    {
        if (ClassName != u"HoldBack.GameArea") return nullptr;
        return new HoldArea(Container);
    }
};

#include "HoldBack.moc"
