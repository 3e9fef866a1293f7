// What the library exports.
#include "TallyArea.h"

class TallyRushComponent final : public QObject, public CGameComponent
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID NOGGLE_GAME_IID FILE "component.json")
    Q_INTERFACES(CGameComponent)

public:
    CGameArea *Create(const QString &ClassName, QWidget *Container) override
    {
        if (ClassName != u"TallyRush.GameArea") return nullptr;
        return new TallyArea(Container);
    }
};

#include "TallyRush.moc"
