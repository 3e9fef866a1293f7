// What the library exports.
#include "FoldArea.h"

class PunchedFoldComponent final : public QObject, public CGameComponent
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID NOGGLE_GAME_IID FILE "component.json")
    Q_INTERFACES(CGameComponent)

public:
    CGameArea *Create(const QString &ClassName, QWidget *Container) override
    {
        if (ClassName != u"PunchedFold.GameArea") return nullptr;
        return new FoldArea(Container);
    }
};

#include "PunchedFold.moc"
