#include "CommentForm.h"

#include "ProgramLine.h"
#include "Theme.h"
#include "rlregistry.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>

namespace pendant {

CommentForm::CommentForm(QWidget* parent)
    : qelplugin::RLContentBase(parent)
    , field(new QLineEdit(this))
{
    setObjectName(QStringLiteral("commentForm"));
    field->setObjectName(QStringLiteral("edit_comment"));
    auto* row = new QHBoxLayout(this);
    auto* label = new QLabel(tr("Text:"), this);
    label->setBuddy(field);
    row->addWidget(label, 0, Qt::AlignTop);
    row->addWidget(field, 1, Qt::AlignTop);
    Theme::dress(this);
    label->setMinimumHeight(field->sizeHint().height());
}

// The key cannot be the name of a call, so that only the pattern finds it.
qelplugin::RlInstruction CommentForm::instruction()
{
    qelplugin::RlInstruction comment;
    comment.key = QStringLiteral("// ") + tr("Comment");
    comment.group = tr("Program text");
    comment.description = tr("A line for the reader; the robot passes it over");
    comment.pattern = QStringLiteral("^\\s*//");
    comment.insertEditor = [] { return new CommentForm; };
    comment.propertyEditor = comment.insertEditor;
    return comment;
}

void CommentForm::FillWith(const QString& text)
{
    if (isComment(text))
        field->setText(withoutComment(text).mid(indentOf(text)));
}

QString CommentForm::BuildText()
{
    return asComment(field->text());
}

} // namespace pendant
