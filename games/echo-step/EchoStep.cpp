// What the library exports.
#include "EchoArea.h"

class EchoStepComponent final : public QObject, public CGameComponent
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID NOGGLE_GAME_IID FILE "component.json")
    Q_INTERFACES(CGameComponent)

public:
    CGameArea *Create(const QString &ClassName, QWidget *Container) override
    {
        if (ClassName != u"EchoStep.GameArea") return nullptr;
        return new EchoArea(Container);
    }
};

#include "EchoStep.moc"
