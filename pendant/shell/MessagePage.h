#pragma once

#include <QWidget>

namespace pendant {

class MessageModel;

/// The message history with its "Clear" button.
class MessagePage : public QWidget
{
    Q_OBJECT

public:
    /// The model must outlive the page.
    explicit MessagePage(MessageModel& model, QWidget* parent = nullptr);

Q_SIGNALS:
    void clearClicked();
};

} // namespace pendant
