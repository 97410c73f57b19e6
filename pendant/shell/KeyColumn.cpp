#include "KeyColumn.h"

#include "HardwareKey.h"
#include "Theme.h"

#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace pendant {

namespace {

// For 96 dots per inch.
constexpr int Width = 104;
constexpr int NarrowWidth = 88;
constexpr int Gap = 8;
constexpr int NarrowGap = 4;

} // namespace

KeyColumn::KeyColumn(QWidget* parent)
    : QFrame(parent)
    , column(new QVBoxLayout(this))
{
    column->setSpacing(Theme::px(Gap));
    column->addStretch(1);
    setNarrow(false);
}

void KeyColumn::setNarrow(bool narrow)
{
    const int gap = Theme::px(Gap);
    const int side = Theme::px(narrow ? NarrowGap : Gap);
    column->setContentsMargins(side, gap, side, gap);
    setFixedWidth(Theme::px(narrow ? NarrowWidth : Width));
}

void KeyColumn::setKeys(const QString& plugin, const QString& group,
                        const QList<qelplugin::PhysicalButton>& keys)
{
    remove(plugin, group);
    for (const auto& record : keys) {
        auto* key = new HardwareKey(record, this);
        key->setObjectName(QStringLiteral("key_") + record.label);
        key->setVisible(plugin == shown);
        column->insertWidget(column->count() - 1, key);
        entries.append({plugin, group, key});
    }
}

void KeyColumn::setActive(const QString& plugin, const QString& group, bool active)
{
    for (const Entry& each : std::as_const(entries)) {
        if (each.plugin == plugin && each.group == group)
            each.key->setEnabled(active);
    }
}

void KeyColumn::showPlugin(const QString& plugin)
{
    shown = plugin;
    for (const Entry& each : std::as_const(entries))
        each.key->setVisible(each.plugin == plugin);
}

void KeyColumn::releaseAll()
{
    // A copy: what a key calls may change the list.
    const QVector<Entry> all = entries;
    for (const Entry& each : all)
        each.key->letGo();
}

void KeyColumn::clear()
{
    const QVector<Entry> all = std::exchange(entries, {});
    for (const Entry& each : all)
        delete each.key;
}

void KeyColumn::remove(const QString& plugin, const QString& group)
{
    const auto others =
        std::stable_partition(entries.begin(), entries.end(), [&](const Entry& each) {
            return each.plugin != plugin || each.group != group;
        });
    QVector<HardwareKey*> gone;
    for (auto each = others; each != entries.end(); ++each)
        gone << each->key;
    entries.erase(others, entries.end());
    // Not at once: the key may be the one that is calling.
    for (HardwareKey* key : std::as_const(gone)) {
        key->hide();
        key->deleteLater();
    }
}

} // namespace pendant
