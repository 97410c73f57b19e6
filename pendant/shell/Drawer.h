#pragma once

#include <QFrame>

class QLabel;
class QStackedWidget;

namespace pendant {

/// The panel that slides over the lower part of the page: one of several contents with its title.
/// A panel and no window, so that the page stays in view and the keys stay in hand.
class Drawer : public QFrame
{
    Q_OBJECT

public:
    explicit Drawer(QWidget* parent);

    /// Takes the content over.
    void add(const QString& title, QWidget* content);
    void open(QWidget* content);
    /// The content that is open, or null.
    QWidget* current() const;

Q_SIGNALS:
    /// Another content is open, or none (null).
    void changed(QWidget* content);

public Q_SLOTS:
    void shut();

private:
    QLabel* title;
    QStackedWidget* contents;
};

} // namespace pendant
