#pragma once

#include "Skeleton.h"
#include "qelplugin.h"

#include <functional>
#include <vector>

namespace pendant {

/// The editor of an instruction that brings none: one input for each field of its skeleton.
class SkeletonForm : public qelplugin::RLContentBase
{
    Q_OBJECT

public:
    explicit SkeletonForm(const Skeleton& skeleton, QWidget* parent = nullptr);

    /// Shows the text, given as BuildText() gives it, as far as it is one of this instruction. A
    /// choice that is not in the list is added to it; a number is brought into its range.
    void FillWith(const QString& text) override;
    QString BuildText() override;

private:
    struct Input
    {
        std::function<QString()> read;
        std::function<void(const QString&)> show;
    };

    QWidget* addInput(const SkeletonField& field);
    QWidget* addChoice(const SkeletonField& field);
    QWidget* addNumber(const SkeletonField& field);

    Skeleton form;
    std::vector<Input> inputs; ///< one for each field
};

} // namespace pendant
