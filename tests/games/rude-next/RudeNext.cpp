// A component of a version that does not exist yet. It must never be loaded: doing so ends the process.
#include "sdk/CGameArea.h"

#include <cstdlib>

namespace
{
[[maybe_unused]] const bool g_Loaded = [] {
    std::abort();
    return true;
}();
}

class RudeNextComponent final : public QObject, public CGameComponent
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "noggle.GameComponent/999" FILE "component.json")
    Q_INTERFACES(CGameComponent)

public:
    CGameArea *Create(const QString &, QWidget *) override { return nullptr; }
};

#include "RudeNext.moc"
