#pragma once

#include <QFrame>

#include <functional>
#include <vector>

class QHBoxLayout;
class QLabel;
class QLineEdit;

namespace pendant {

/// A question that lies over its parent until it is answered. Beside the given answers there is
/// always "Cancel", which does nothing.
class QuestionPanel : public QFrame
{
    Q_OBJECT

public:
    struct Answer
    {
        const char* name; ///< of the button: "answer_" before it
        QString caption;
        std::function<void()> action;
    };

    explicit QuestionPanel(QWidget* parent);

    void ask(const QString& text, const std::vector<Answer>& answers);
    /// Asks for a name. What is entered goes to `accept`, which tells whether it was good: the
    /// question stays until it is.
    void askName(const QString& text, const QString& preset,
                 const std::function<bool(const QString&)>& accept);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void open(const QString& text);
    void addAnswer(const Answer& answer);
    void place();

    QFrame* card;
    QLabel* question;
    QLineEdit* name;
    QHBoxLayout* row;
};

} // namespace pendant
