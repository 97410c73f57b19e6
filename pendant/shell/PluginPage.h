#pragma once

#include "PluginLoader.h"

#include <QWidget>

class QTableWidget;

namespace pendant {

/// The list of what the plugin folder holds, what was loaded and what was not, and why.
class PluginPage : public QWidget
{
    Q_OBJECT

public:
    explicit PluginPage(QWidget* parent = nullptr);

    void setReports(const QVector<PluginReport>& reports);

protected:
    void changeEvent(QEvent* event) override;

private:
    QVector<PluginReport> shown;
    QTableWidget* table;
};

} // namespace pendant
