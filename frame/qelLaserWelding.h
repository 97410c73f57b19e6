#pragma once

#include <qelplugin.h>

class LaserWeldPage;
class ShowStatusBar;

namespace qelplugin {

/// The plugin as the host sees it.
///
/// The central page and the indicator are made by init() and belong to the host from then on; no
/// other operation may come before it.
class Q_DECL_EXPORT qelLaserWelding : public PluginBase
{
    Q_OBJECT

public:
    explicit qelLaserWelding(QObject* parent = nullptr);
    ~qelLaserWelding() override;

    /// Hands the five hardware keys to the host.
    void initPhysicalButton();

private:
    void init() override;
    void afterInit() override;
    void render() override;
    void idle() override;

    LaserWeldPage* mainPage;
    QString monitorDataKey;
    ShowStatusBar* statusBar;
};

/// Version of the plugin interface.
Q_DECL_EXPORT int api();

} // namespace qelplugin
