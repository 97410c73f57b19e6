#pragma once

#include "qelpluginglobal.h"

#include <QString>
#include <QWidget>

namespace qelplugin {

/// Base of the instruction editors. The order in which the virtual operations stand is part of the
/// binary interface.
class QELPLUGIN_EXPORT RLContentBase : public QWidget
{
    Q_OBJECT

public:
    explicit RLContentBase(QWidget* parent);
    ~RLContentBase() override;

    /// Loads the editor from an existing program line.
    virtual void FillWith(const QString& text);
    /// The instruction's text as the editor now shows it.
    virtual QString BuildText();
    /// May the instruction be inserted?
    virtual bool CheckInsert();
    /// May the instruction replace the existing line?
    virtual bool CheckReplace();

protected:
    QString insName; ///< key of the instruction; empty where the editor does not need it

private:
    Q_DISABLE_COPY(RLContentBase)
};

} // namespace qelplugin
