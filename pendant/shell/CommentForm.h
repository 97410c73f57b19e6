#pragma once

#include "qelplugin.h"

class QLineEdit;

namespace qelplugin {
struct RlInstruction;
}

namespace pendant {

/// The editor of a line that is a comment.
class CommentForm : public qelplugin::RLContentBase
{
    Q_OBJECT

public:
    explicit CommentForm(QWidget* parent = nullptr);

    /// The comment as an instruction of the pendant itself, beside those of the plugins.
    static qelplugin::RlInstruction instruction();

    void FillWith(const QString& text) override;
    QString BuildText() override;

private:
    QLineEdit* field;
};

} // namespace pendant
