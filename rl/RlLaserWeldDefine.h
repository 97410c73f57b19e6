#pragma once

#include <QObject>

namespace qelplugin {
class RLManager;
}

/// The laser-welding instructions of the robot language. Making the object registers them with the
/// host's program editor; the registrations outlive it.
class RlLaserWeldDefine : public QObject
{
    Q_OBJECT

public:
    explicit RlLaserWeldDefine(QObject* parent);

private:
    qelplugin::RLManager* manager; ///< a child of this object
};
