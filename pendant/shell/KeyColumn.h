#pragma once

#include "qelplugin.h"

#include <QFrame>
#include <QVector>

class QVBoxLayout;

namespace pendant {

class HardwareKey;

/// One of the two columns of hardware keys. It shows the keys of one plugin at a time.
class KeyColumn : public QFrame
{
    Q_OBJECT

public:
    explicit KeyColumn(QWidget* parent = nullptr);

    /// In a narrow window the keys are as narrow as their captions permit, for the page's sake.
    void setNarrow(bool narrow);
    /// Replaces the plugin's keys of the group.
    void setKeys(const QString& plugin, const QString& group,
                 const QList<qelplugin::PhysicalButton>& keys);
    /// Enables or disables the plugin's keys of the group.
    void setActive(const QString& plugin, const QString& group, bool active);
    /// Shows the keys of this plugin and hides all others.
    void showPlugin(const QString& plugin);
    /// Lets every key go that is held.
    void releaseAll();
    /// Deletes all keys; those that are held are let go first.
    void clear();

private:
    struct Entry
    {
        QString plugin;
        QString group;
        HardwareKey* key;
    };
    void remove(const QString& plugin, const QString& group);

    QVBoxLayout* column;
    QVector<Entry> entries;
    QString shown;
};

} // namespace pendant
