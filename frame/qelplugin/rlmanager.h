#pragma once

#include "qelpluginglobal.h"
#include "rlcontentbase.h"
#include "rlcustomcommand.h"

#include <QObject>
#include <QString>

#include <functional>

namespace qelplugin {

/// Handle on the host's registry of robot-program instructions. What it registers outlives it.
class QELPLUGIN_EXPORT RLManager : public QObject
{
    Q_OBJECT

public:
    /// Makes a new editor without a parent; the caller owns it.
    using Factory = std::function<RLContentBase*()>;

    explicit RLManager(QObject* parent);
    ~RLManager() override;

    /// Announces the instruction.
    void createTypeKey(const QString& key);
    /// The text from which the host builds the input form or the plain line.
    void createSkeleton(const QString& key, const QString& skeleton);
    void createInsDescribe(const QString& key, const QString& description);
    /// The regular expression by which a program line is recognised.
    void createPattern(const QString& key, const QString& pattern);
    /// The line that is inserted by default.
    void createInsDefault(const QString& key, const QString& text);
    void createInsertWidget(const QString& key, Factory factory);
    void createPropertyWidget(const QString& key, Factory factory);
    void createTypeToGroup(const QString& group, const QString& key);
    void createGroups(const QString& title, const QString& group);
    /// Registers an instruction with typed arguments in one call.
    void createData(const QString& group, const RlCustomCommandSpec& command, Factory insert,
                    Factory property);

private:
    Q_DISABLE_COPY(RLManager)
    struct State;
    State* state;
};

} // namespace qelplugin
