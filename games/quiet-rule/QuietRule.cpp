// What the library exports.
#include "QuietArea.h"

class QuietRuleComponent final : public QObject, public CGameComponent
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID NOGGLE_GAME_IID FILE "component.json")
    Q_INTERFACES(CGameComponent)

public:
    CGameArea *Create(const QString &ClassName, QWidget *Container) override
    {
        if (ClassName != u"QuietRule.GameArea") return nullptr;
        return new QuietArea(Container);
    }
};

#include "QuietRule.moc"
