#pragma once

#include <QListView>

namespace pendant {

class InstructionCatalogue;
class ProgramDocument;

/// The lines of a program with their numbers; the instructions of plugins stand out. One line or
/// several that stand together can be selected. Nothing is looked at before it is shown.
class ProgramView : public QListView
{
    Q_OBJECT

public:
    /// Both must outlive the view.
    ProgramView(ProgramDocument& document, const InstructionCatalogue& catalogue,
                QWidget* parent = nullptr);

    int selectedFirst() const; ///< -1 when nothing is selected
    int selectedCount() const;
    /// Selects the rows and scrolls to the first of them.
    void select(int first, int count = 1);

Q_SIGNALS:
    void selectionMoved();

protected:
    void scrollContentsBy(int dx, int dy) override;
    void selectionChanged(const QItemSelection& selected,
                          const QItemSelection& deselected) override;
};

} // namespace pendant
