#pragma once

#include "EditorTest.h"
#include "TestCase.h"

#include <QComboBox>
#include <QLabel>
#include <QSpinBox>

#include <memory>

/// What the tests of LaserOn's and LsParaSet's editor share. Both choose a schedule and a mode, of
/// which the second comes with a number, and show the call. The derived class says what sets its
/// editor apart and has the rows.
class ScheduleEditorTest : public TestCase
{
    Q_OBJECT

protected:
    struct Traits
    {
        QString key;
        const char* className;        ///< qualified
        QSize size;                   ///< of the form
        const char* mode;             ///< name of the box
        const char* number;           ///< name of the box that the second mode comes with
        const char* numberLabel;      ///< name of the label
        int least, most, preset;      ///< of the number
        int commasWithNumber;         ///< in a call that has it
        const char* anyCall;          ///< expression for all that the editor may show
        QString tag;                  ///< of the log
        const char* unknownException; ///< as logged
        QStringList pieces;           ///< for generated arguments
    };
    using Editor = std::unique_ptr<qelplugin::RLContentBase>;

    explicit ScheduleEditorTest(const Traits& editorTraits);

    virtual Editor make() const = 0;
    /// The call with this schedule, the second mode and this number.
    virtual QString callWith(int schedule, int number) const = 0;

    static QComboBox* schedule(const Editor& editor);
    QComboBox* mode(const Editor& editor) const;
    QSpinBox* number(const Editor& editor) const;
    bool showsNumber(const Editor& editor) const;
    bool hidesNumber(const Editor& editor) const;
    /// Matches a line of the editor's log that ends with the text.
    QRegularExpression lineWith(char level, const QString& end) const;

    const Traits traits;

private Q_SLOTS:
    void newForm();
    void schedules();
    void builds_data();
    void builds();
    void loads_data();
    void loads();
    void changesNothing_data();
    void changesNothing();
    void numberFollowsMode();
    void exceptions_data();
    void exceptions();
    void asksNoHost();
    void randomLines();

protected:
    /// One row for builds().
    static void build(const char* name, int schedule, int mode, int number, const char* text);
    /// One row for loads(): the line and what is written again.
    static void load(const char* name, const char* line, const char* text);

private:
    virtual void rowsToBuild() const = 0;
    virtual void rowsToLoad() const = 0;
    /// Lines that change nothing, over those of every call.
    virtual QStringList otherRefusals() const { return {}; }
};
