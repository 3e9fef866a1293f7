// What the library exports.
#include "LanternArea.h"

class LanternRowComponent final : public QObject, public CGameComponent
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID NOGGLE_GAME_IID FILE "component.json")
    Q_INTERFACES(CGameComponent)

public:
    CGameArea *Create(const QString &ClassName, QWidget *Container) override
    {
        if (ClassName != u"LanternRow.GameArea") return nullptr;
        return new LanternArea(Container);
    }
};

#include "LanternRow.moc"
