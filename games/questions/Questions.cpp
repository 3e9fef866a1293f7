// What the library exports.
#include "QuestionArea.h"

class QuestionsComponent final : public QObject, public CGameComponent
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID NOGGLE_GAME_IID FILE "component.json")
    Q_INTERFACES(CGameComponent)

public:
    CGameArea *Create(const QString &ClassName, QWidget *Container) override
    {
        if (ClassName != u"Questions.GameArea") return nullptr;
        return new QuestionArea(Container);
    }
};

#include "Questions.moc"
