#pragma once

#include "Examiner.h"
#include "PluginOnHost.h"

#include <QSize>
#include <QTranslator>

#include <memory>

class LaserWeldPage;
class QScrollArea;
class QWidget;

/// The plugin in the place that the pendant gives it, on a cell in which everything is in use.
class Stage
{
public:
    /// `window` is the size of the pendant's window. A null catalogue leaves the texts English.
    Stage(const QSize& window, const QString& catalogue);
    ~Stage();

    /// All views of the main page, then all instruction editors.
    QVector<Finding> examineAll();

private:
    Q_DISABLE_COPY(Stage)

    void furnish();
    void openSetup();
    void openWeldIo();
    void openCurves();
    void openWeldData();
    void openTracking();
    void openEditors();
    void openEditor(const QString& view, QWidget* editor);

    /// Clicks the entry of the navigation, counted from 0.
    QWidget* openPage(int entry);
    void look(const QString& view, QWidget* root);

    QString sizeName;
    QSize place;
    QTranslator translator;
    std::unique_ptr<QScrollArea> area;
    std::unique_ptr<PluginOnHost> plugin;
    LaserWeldPage* page = nullptr;
    QVector<Finding> findings;
};
