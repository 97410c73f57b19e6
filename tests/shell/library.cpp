// A library of the plugin folder, sound or broken as its definitions say.

#include <qelplugin.h>

#include <QLabel>

#include <utility>

#ifdef LIBRARY_NEWER_QT
extern "C" void newerQt();
void useNewerQt()
{
    newerQt();
}
#endif

#ifdef LIBRARY_MISSING_SYMBOL
namespace elsewhere {
void neverDefined(int);
}
void useMissingSymbol()
{
    elsewhere::neverDefined(1);
}
#endif

#ifdef LIBRARY_PLUGIN
namespace {

using namespace qelplugin;

const QString Name = QStringLiteral(LIBRARY_PLUGIN);

void tell(const QString& text)
{
    ThrowLog(
        Name, ThrowLogInformation,
        QStringLiteral("%1 at level %2").arg(text).arg(qelPluginInterface().getUserOperateLevel()));
}

PhysicalButton key(const QString& label)
{
    return {label, QString(), QString(), [label](bool on) {
                tell(label + (on ? QStringLiteral(" pressed") : QStringLiteral(" released")));
            }};
}

/// Hands over a page, an indicator and keys, and tells of each step of its life.
class Plugin : public PluginBase
{
public:
    explicit Plugin(QObject* parent)
        : PluginBase(parent)
    {
        setPluginLabel(QStringLiteral("Label of ") + Name);
    }
    ~Plugin() override { tell(QStringLiteral("deleted")); }

private:
    void init() override
    {
        tell(QStringLiteral("init"));
        auto* page = new QLabel(QStringLiteral("Page"));
        page->setObjectName(QStringLiteral("page_") + Name);
        CreateCenterWidget(Name, page);
        CreateStatusBar(Name, new QLabel(QStringLiteral("Indicator")), 1);
        CreatePhyButtonList(Name, Name, {key(QStringLiteral("Left"))},
                            {key(QStringLiteral("Right"))}, {});
        ChangePhyButtonStatus(Name, Name, true);
    }
    void afterInit() override { tell(QStringLiteral("afterInit")); }
    void render() override { tell(QStringLiteral("render")); }
};

int registerPlugin()
{
    qelPluginFactory().regist(Name, [](QObject* parent) -> PluginBase* {
#ifdef LIBRARY_MAKES_NOTHING
        Q_UNUSED(parent)
        return nullptr;
#elif defined(LIBRARY_MAKES_ONE)
        static bool isMade = false;
        return std::exchange(isMade, true) ? nullptr : new Plugin(parent);
#else
        return new Plugin(parent);
#endif
    });
    return 0;
}

const int registered = registerPlugin();

} // namespace
#endif

#ifdef LIBRARY_API
namespace qelplugin {
Q_DECL_EXPORT int api();
int api()
{
    return LIBRARY_API;
}
} // namespace qelplugin
#endif
