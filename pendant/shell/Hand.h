#pragma once

#include <QString>

#include <functional>

class QAbstractItemView;
class QComboBox;
class QModelIndex;
class QPoint;
class QTabBar;
class QWidget;

namespace pendant {

/// A hand at the pendant: it finds what it is told to touch in the window and gives it the events
/// of the mouse and the keyboard. What it cannot reach as an operator would, it refuses.
class Hand
{
public:
    explicit Hand(QWidget& window);

    /// The widget of the object name, a visible one before a hidden one; or null with a complaint.
    /// "a/b" is the "b" within the "a".
    QWidget* find(const QString& name);
    /// The tool button that shows the text.
    QWidget* findTool(const QString& text);

    bool click(QWidget* widget);
    bool press(QWidget* widget);
    bool release(QWidget* widget);
    /// Of a row that is out of view, after scrolling to it.
    bool click(QAbstractItemView* view, const QModelIndex& index);
    /// Of the tab that shows the text, after scrolling to it.
    bool click(QTabBar* tabs, const QString& text);
    /// Opens the list and clicks the entry.
    bool choose(QComboBox* box, const QString& entry);
    /// Replaces what is in the field. A line break is the return key.
    bool enter(QWidget* field, const QString& text);

    /// Works the events off until the condition holds, for at most `milliseconds`.
    static bool waitFor(const std::function<bool()>& condition, int milliseconds = 5000);

    /// Why the last touch was not possible; empty when it was.
    const QString& complaint() const { return trouble; }

private:
    bool refuse(const QString& reason);
    bool reach(QWidget* widget, const QPoint& place);
    bool bringOut(QTabBar* tabs, int index);
    QWidget* findWithin(QWidget* parent, const QString& name);

    QWidget& window;
    QString trouble;
};

} // namespace pendant
