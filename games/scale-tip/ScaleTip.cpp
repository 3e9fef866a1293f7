// What the library exports.
#include "ScaleArea.h"

class ScaleTipComponent final : public QObject, public CGameComponent
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID NOGGLE_GAME_IID FILE "component.json")
    Q_INTERFACES(CGameComponent)

public:
    CGameArea *Create(const QString &ClassName, QWidget *Container) override
    {
        if (ClassName != u"ScaleTip.GameArea") return nullptr;
        return new ScaleArea(Container);
    }
};

#include "ScaleTip.moc"
